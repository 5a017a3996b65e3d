#include "engine/CompressedFile.h"

#include "core/Errors.h"
#include "engine/AviInput.h"
#include "engine/ChainedVorbis.h"
#include "engine/DecodeAhead.h"
#include "engine/FfmpegDecoder.h"
#include "engine/FfmpegInput.h"
#include "engine/FormatText.h"
#include "engine/PacketBatchDecoder.h"
#include "engine/PacketCount.h"
#include "engine/Preroll.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <algorithm>
#include <thread>

namespace {

constexpr int mostSilentPackets = 1000;    // without a first sound there is none to come
constexpr int shortSeconds = 10;           // over before a second thread has helped
constexpr int mostThreads = 8;             // each keeps a batch in memory

struct Name {
    const char* of;
    const char* shown;
};
constexpr Name containerNames[] = {{"wav", "WAV"}, {"asf", "WMA"}, {"avi", "AVI"}};
constexpr Name codecNames[] = {{"mp3", "MP3"},      {"vorbis", "Ogg Vorbis"}, {"ac3", "AC3"},
                               {"wmav1", "WMA"},    {"wmav2", "WMA"},         {"pcm_s16le", "PCM"},
                               {"pcm_u8", "PCM"},   {"pcm_s24le", "PCM"},     {"pcm_s32le", "PCM"},
                               {"pcm_f32le", "PCM"}};

template <std::size_t N>
QString nameIn(const Name (&table)[N], const QString& of)
{
    for (const Name& name : table)
        if (of == QLatin1String(name.of)) return QString::fromLatin1(name.shown);
    return {};
}

/// The first sound stream that a decoder opens; -1 where there is none.
int findStream(const FfmpegInput& input)
{
    for (const AVStream* stream : input.soundStreams())
        if (canDecode(codecSetup(*stream))) return stream->index;
    return -1;
}

/// The length of an Ogg stream by its time stamps. Vorbis begins to sound where its first packet ends, which
/// may lie ahead of the stream's own start.
std::int64_t lengthByStamps(const AVStream& stream, const PacketCount& counted, int rate)
{
    std::int64_t ticks = stream.duration;
    if (stream.codecpar->codec_id == AV_CODEC_ID_VORBIS && counted.firstEnd() &&
        stream.start_time != AV_NOPTS_VALUE)
        ticks += stream.start_time - *counted.firstEnd();
    return av_rescale_q(std::max<std::int64_t>(ticks, 0), stream.time_base, {1, rate});
}

/// Reads and counts packets, all of them or up to the first that sounds. Returns the form of the first sound.
SoundFormat firstSound(PacketInput& input, const CodecSetup& setup, bool all, PacketCount& counted)
{
    PacketDecoder decoder(setup);
    BlockList heard;
    const Packet packet(av_packet_alloc());
    const auto listening = [&] { return heard.size() == 0 && counted.packets() < mostSilentPackets; };
    while ((all || heard.size() == 0) && (listening() ? input.read(*packet) : input.readToCount(*packet))) {
        if (listening()) decoder.decode(packet.get(), &heard);
        counted.add(*packet);
    }
    if (heard.size() == 0) decoder.decode(nullptr, &heard);
    return heard.size() > 0 ? heard[0].format : SoundFormat();
}

/// A stream without a single packet is no fault: it holds no sound, and says so by a total of 0.
SoundFormat formatOr(const SoundFormat& heard, const AVCodecParameters& told, std::int64_t packets)
{
    if (heard.rate > mostRate || told.sample_rate > mostRate)
        throw EngineError(QStringLiteral("no sound has so high a sample rate"));
    if (heard.rate > 0) return heard;
    if (packets > 0 || told.sample_rate <= 0 || told.ch_layout.nb_channels <= 0)
        throw EngineError(QStringLiteral("there is no sound in this file"));
    return {told.sample_rate, std::min(told.ch_layout.nb_channels, 2)};
}

/// Bits a second. WMA tells the round number that it was made with; of Ogg not all packets were counted.
std::int64_t bitrateOf(const CompressedFile& found, const PacketCount& counted, bool all)
{
    const AVCodecParameters& codec = *found.codec.parameters;
    const bool wma = codec.codec_id == AV_CODEC_ID_WMAV1 || codec.codec_id == AV_CODEC_ID_WMAV2;
    if (wma && codec.bit_rate > 0) return codec.bit_rate;
    if (all) return counted.bitrate(found.info.format.rate);
    return found.info.total > 0 ? found.file->size() * 8 * found.info.format.rate / found.info.total : 0;
}

QString describe(const QString& container, const AVCodecParameters& codec, const SoundFormat& format,
                 std::int64_t bitrate)
{
    const QString codecName = QString::fromLatin1(avcodec_get_name(codec.codec_id));
    const QString shown = nameIn(codecNames, codecName);
    QStringList kinds;
    const QString outer = nameIn(containerNames, container);
    if (!outer.isEmpty()) kinds << outer;
    const QString inner = shown.isEmpty() ? codecName.toUpper() : shown;
    if (inner != outer) kinds << inner;
    const bool plain = shown == QLatin1String("PCM");
    return formatText(kinds, format, plain ? bitsText(codec.bits_per_coded_sample) : bitrateText(bitrate));
}

/// Several threads only for what is worth the while.
int threadsFor(const SoundInfo& info)
{
    const int cores = static_cast<int>(std::thread::hardware_concurrency());
    return info.total < std::int64_t(info.format.rate) * shortSeconds ? 1 : std::clamp(cores, 1, mostThreads);
}

/// Frames by decoding all of it.
std::int64_t decodedTotal(const CompressedFile& file)
{
    FfmpegDecoder decoder(openPackets(file), file.codec);
    std::int64_t frames = 0;
    for (Block block; decoder.next(block);)
        frames += static_cast<std::int64_t>(block.samples.size()) / block.format.channels;
    return frames;
}

/// Of a few codecs the packets don't tell how much sound is in them.
std::int64_t aviTotal(const CompressedFile& file, const PacketCount& counted)
{
    const std::int64_t total = counted.total(file.info.format.rate);
    const bool untold = total == 0 || file.codec.parameters->codec_id == AV_CODEC_ID_VORBIS;
    return untold ? decodedTotal(file) : total;
}

/// Empty where the file is no AVI, or has something in it that only libavformat may make sense of.
std::optional<CompressedFile> inspectAvi(const std::shared_ptr<const SourceFile>& file)
{
    CompressedFile found{file, {}, false, 0, {}, findAviSource(file)};
    if (!found.avi) return {};
    found.codec = found.avi->codec;
    found.stream = found.avi->sound.stream;
    AviInput input(file, found.avi->avi, found.avi->sound);
    PacketCount count(found.codec);
    found.info.format = firstSound(input, found.codec, true, count);
    if (found.info.format.rate == 0 || input.lost()) return {};
    found.info.total = aviTotal(found, count);
    found.info.text = describe(QStringLiteral("avi"), *found.codec.parameters, found.info.format,
                               bitrateOf(found, count, true));
    return found;
}

}    // namespace

CompressedFile inspectFile(std::shared_ptr<const SourceFile> file, bool wmaEnabled)
{
    if (auto avi = inspectAvi(file)) return std::move(*avi);
    FfmpegInput input(file);
    const QString container = input.container();
    if (container == QLatin1String("asf") && !wmaEnabled)
        throw EngineError(QStringLiteral("WMA is switched off"));

    CompressedFile found{file, {}, false, findStream(input), {}, {}};
    if (found.stream < 0) throw EngineError(QStringLiteral("%1 holds no sound").arg(file->path()));
    const bool ogg = container == QLatin1String("ogg");
    if (const auto chain = ogg ? ChainedVorbis::inspect(file) : std::nullopt) {
        found.chained = true;
        found.info = *chain;
        return found;
    }
    const AVStream& stream = input.stream(found.stream);
    found.codec = codecSetup(stream);
    input.choose(found.stream);
    const bool told = ogg && stream.duration > 0;
    PacketCount count(found.codec);
    const SoundFormat heard = firstSound(input, found.codec, !told, count);

    SoundInfo& info = found.info;
    info.format = formatOr(heard, *found.codec.parameters, count.packets());
    info.total = told ? lengthByStamps(stream, count, info.format.rate) : count.total(info.format.rate);
    info.text = describe(container, *found.codec.parameters, info.format, bitrateOf(found, count, !told));
    return found;
}

std::unique_ptr<PacketInput> openPackets(const CompressedFile& file)
{
    if (file.avi) return std::make_unique<AviInput>(file.file, file.avi->avi, file.avi->sound);
    auto input = std::make_unique<FfmpegInput>(file.file);
    input->choose(file.stream);
    return input;
}

std::unique_ptr<BlockSource> startDecoding(const CompressedFile& file)
{
    if (file.chained) return std::make_unique<DecodeAhead>(std::make_unique<ChainedVorbis>(file.file));
    if (canDecodeInPieces(file.codec.parameters->codec_id) && threadsFor(file.info) > 1)
        return std::make_unique<PacketBatchDecoder>(openPackets(file), file.codec,
                                                    BatchPlan{.threads = threadsFor(file.info)});
    auto serial = std::make_unique<FfmpegDecoder>(openPackets(file), file.codec);
    return std::make_unique<DecodeAhead>(std::move(serial));
}
