#include "engine/AviFile.h"

#include "engine/AviChunk.h"
#include "engine/WaveForm.h"

extern "C" {
#include <libavutil/intreadwrite.h>
}

#include <algorithm>
#include <array>

namespace {

constexpr int mostChunks = 2000;    // ahead of the first of a stream; a damaged file could name millions
constexpr int mostStreams = 100;    // two digits name them
constexpr std::uint32_t longestChunk = 1'000'000;
constexpr std::size_t longestForm = 64 * 1024;
constexpr std::size_t streamHeadBytes = 48;
constexpr std::uint32_t orderIsInTheIndex = 0x20;    // of the flags in the main header

/// Reads the header chunk by chunk. Every member function returns false where it meets something unusual.
class HeaderReader {
public:
    explicit HeaderReader(const SourceFile& file) : file_(file) {}

    bool read(AviFile& avi);

private:
    bool takeChunk(AviFile& avi);
    bool takeList(AviFile& avi);
    bool takeMainHead() const;
    bool takeStreamHead(AviFile& avi);
    bool takeForm(AviFile& avi);

    const SourceFile& file_;
    std::int64_t at_ = 12;    ///< of the chunk
    AviChunk chunk_;
    bool sound_ = false;    ///< the current stream is one of sound, whose form is still to come
    bool done_ = false;
    int unitBytes_ = 0;
};

bool HeaderReader::read(AviFile& avi)
{
    std::array<std::uint8_t, 12> head;
    if (file_.readAt(0, head.data(), head.size()) != head.size()) return false;
    const AviChunk riff(head.data());
    if (!riff.is("RIFF") || !isName(&head[8], "AVI ")) return false;
    avi.told = std::max(file_.size(), AviChunk::headBytes + riff.bytes);
    for (int i = 0; i < mostChunks && !done_; ++i)
        if (!takeChunk(avi)) return false;
    return done_;
}

bool HeaderReader::takeChunk(AviFile& avi)
{
    std::array<std::uint8_t, AviChunk::headBytes> head;
    if (file_.readAt(at_, head.data(), head.size()) != head.size()) return false;
    chunk_ = AviChunk(head.data());
    at_ += AviChunk::headBytes;
    if (chunk_.is("LIST")) return takeList(avi);
    if (chunk_.bytes > longestChunk || chunk_.is("amvh")) return false;
    if (chunk_.is("avih") && !takeMainHead()) return false;
    if (chunk_.is("strh") && !takeStreamHead(avi)) return false;
    if (chunk_.is("strf") && sound_ && !takeForm(avi)) return false;
    at_ += chunk_.bytes + (chunk_.bytes & 1);
    return true;
}

/// Lists of the header are gone into, whatever length they claim; others are passed over.
bool HeaderReader::takeList(AviFile& avi)
{
    std::array<std::uint8_t, 4> kind;
    if (file_.readAt(at_, kind.data(), kind.size()) != kind.size()) return false;
    done_ = isName(kind.data(), "movi");
    const bool entered = done_ || isName(kind.data(), "hdrl") || isName(kind.data(), "strl");
    at_ += entered ? std::int64_t(kind.size()) : chunk_.bytes + std::int64_t(chunk_.bytes & 1);
    avi.chunksAt = at_;
    return true;
}

/// A file whose chunks are to be played in another order than they lie in can't be walked.
bool HeaderReader::takeMainHead() const
{
    std::array<std::uint8_t, 16> head;
    if (chunk_.bytes < head.size() || file_.readAt(at_, head.data(), head.size()) != head.size())
        return false;
    return !(AV_RL32(&head[12]) & orderIsInTheIndex);
}

bool HeaderReader::takeStreamHead(AviFile& avi)
{
    std::array<std::uint8_t, streamHeadBytes> head;
    if (chunk_.bytes < head.size() || (chunk_.bytes & 1)) return false;
    if (file_.readAt(at_, head.data(), head.size()) != head.size() || avi.streams == mostStreams)
        return false;
    const bool picture = isName(&head[0], "vids");
    sound_ = isName(&head[0], "auds");
    if (!picture && !sound_ && !isName(&head[0], "txts") && !isName(&head[0], "dats")) return false;
    if (sound_ && isName(&head[4], "Axan")) return false;    // claims another codec than it has
    if (avi.streams == 0) avi.pictureFirst = picture;
    unitBytes_ = static_cast<int>(std::min<std::uint32_t>(AV_RL32(&head[44]), longestChunk));
    ++avi.streams;
    return true;
}

/// Many programs write a wrong size of units; then the size of the codec's blocks counts.
int trueUnit(int unitBytes, const AVCodecParameters& codec)
{
    constexpr int mp3Frames = 1152;    // a length in samples, in the place of one in bytes
    if (unitBytes > 0 && codec.block_align > 0) unitBytes = codec.block_align;
    if (codec.codec_id == AV_CODEC_ID_MP3 && unitBytes == mp3Frames) return 0;
    if (codec.codec_id == AV_CODEC_ID_AAC && (unitBytes == 1024 || unitBytes == 4096)) return 0;
    return unitBytes <= 1 ? 0 : unitBytes;
}

bool HeaderReader::takeForm(AviFile& avi)
{
    std::vector<std::uint8_t> form(std::min<std::size_t>(chunk_.bytes, longestForm));
    if (file_.readAt(at_, form.data(), form.size()) != form.size()) return false;
    AviSound sound{avi.streams - 1, parseWaveForm(form), 0};
    if (!sound.codec.parameters) return false;
    sound.unitBytes = trueUnit(unitBytes_, *sound.codec.parameters);
    avi.sounds.push_back(std::move(sound));
    sound_ = false;
    return true;
}

}    // namespace

std::optional<AviFile> findAviFile(const SourceFile& file)
{
    AviFile avi;
    if (!HeaderReader(file).read(avi)) return {};
    return avi;
}
