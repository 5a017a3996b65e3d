// AVI files put together by hand, for what the programs that write them never or seldom do.
#pragma once

#include "engine/CompressedFile.h"
#include "engine/FfmpegDecoder.h"
#include "engine/FfmpegInput.h"
#include "tests/engine/ReadingFixtures.h"

inline Bytes listOf(const char* kind, const Bytes& chunks)
{
    return chunk("LIST", Bytes(kind, 4) + chunks);
}

inline Bytes number(std::uint32_t value)
{
    return littleEndian(value);
}

inline Bytes streamHead(const char* type, std::uint32_t rate, std::uint32_t unitBytes)
{
    return chunk("strh", Bytes(type, 4) + Bytes(16, '\0') + number(1) + number(rate) + number(0) + number(0) +
                             number(0) + number(0) + number(unitBytes) + number(0) + number(0));
}

/// The head of a stream of pictures that no one looks at.
inline Bytes pictureStream()
{
    const Bytes form = number(40) + number(16) + number(16) + littleEndian(std::uint16_t(1)) +
                       littleEndian(std::uint16_t(24)) + Bytes(24, '\0');
    return listOf("strl", streamHead("vids", 25, 0) + chunk("strf", form));
}

/// `form` is that of a WAV file.
inline Bytes soundStream(const Bytes& form, std::uint32_t rate, std::uint32_t unitBytes)
{
    return listOf("strl", streamHead("auds", rate, unitBytes) + chunk("strf", form));
}

inline Bytes pcmForm(int channels, int bits, int rate = 44100)
{
    return formChunk(channels, bits, 1, rate).mid(8);
}

inline Bytes mp3Form(int channels, int rate)
{
    return littleEndian(std::uint16_t(0x55)) + littleEndian(std::uint16_t(channels)) + number(rate) +
           number(16000) + littleEndian(std::uint16_t(1)) + littleEndian(std::uint16_t(0)) +
           littleEndian(std::uint16_t(12)) + littleEndian(std::uint16_t(1)) + number(2) +
           littleEndian(std::uint16_t(1152)) + littleEndian(std::uint16_t(1)) +
           littleEndian(std::uint16_t(0));
}

inline Bytes mainHead(std::uint32_t flags, std::uint32_t streams)
{
    return chunk("avih", number(40000) + number(0) + number(0) + number(flags) + number(0) + number(0) +
                             number(streams) + Bytes(28, '\0'));
}

inline Bytes headList(const Bytes& streams, std::uint32_t flags = 0)
{
    return listOf("hdrl", mainHead(flags, 2) + streams);
}

inline Bytes aviFile(const Bytes& parts)
{
    return chunk("RIFF", Bytes("AVI ") + parts);
}

/// Stream 0 is pictures, stream 1 plain stereo sound.
inline Bytes usualHead()
{
    return headList(pictureStream() + soundStream(pcmForm(2, 16), 44100, 4));
}

/// The sound in chunks of stream 1, one of pictures ahead of each.
inline Bytes interleaved(const Bytes& sound, int chunkBytes, int pictureBytes = 301)
{
    Bytes chunks;
    for (qsizetype at = 0; at < sound.size(); at += chunkBytes)
        chunks += chunk("00dc", Bytes(pictureBytes, 'p')) + chunk("01wb", sound.mid(at, chunkBytes));
    return chunks;
}

inline CompressedFile inspect(const QString& path)
{
    return inspectFile(std::make_shared<const SourceFile>(path), true);
}

inline SampleArray drain(BlockSource& source)
{
    SampleArray all;
    for (Block block; source.next(block);) all.insert(all.end(), block.samples.begin(), block.samples.end());
    return all;
}

inline SampleArray inOnePass(const CompressedFile& file)
{
    FfmpegDecoder decoder(openPackets(file), file.codec);
    return drain(decoder);
}

/// The first sound stream, by libavformat all the way.
inline SampleArray byLibavformat(const QString& path)
{
    auto input = std::make_unique<FfmpegInput>(std::make_shared<const SourceFile>(path));
    const AVStream* stream = input->soundStreams().at(0);
    const CodecSetup setup = codecSetup(*stream);
    input->choose(stream->index);
    FfmpegDecoder decoder(std::move(input), setup);
    return drain(decoder);
}
