#include "engine/AviInput.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>
#include <cstring>

namespace {

constexpr std::int64_t streamPiece = 64 * 1024;
constexpr std::int64_t longestWhole = 16 * 1024 * 1024;
constexpr std::int64_t pcmFrames = 4096;
constexpr std::int64_t countedFrames =
    64 * 1024;                            // so that no piece is beyond an int, whatever the channels
constexpr std::int64_t smallUnit = 32;    // of these, many make a piece
constexpr std::int64_t smallUnits = 1024;

/// Codecs whose frames the parser finds in bytes cut up in any way.
constexpr AVCodecID streamCodecs[] = {AV_CODEC_ID_MP1,  AV_CODEC_ID_MP2, AV_CODEC_ID_MP3, AV_CODEC_ID_AC3,
                                      AV_CODEC_ID_EAC3, AV_CODEC_ID_AAC, AV_CODEC_ID_DTS};

bool isStream(AVCodecID codec)
{
    return std::find(std::begin(streamCodecs), std::end(streamCodecs), codec) != std::end(streamCodecs);
}

/// Bytes of a sample in all its channels; 0 where the codec isn't plain samples.
std::int64_t pcmFrameBytes(const AVCodecParameters& codec)
{
    if (codec.codec_id < AV_CODEC_ID_FIRST_AUDIO || codec.codec_id >= AV_CODEC_ID_ADPCM_IMA_QT) return 0;
    return std::int64_t(av_get_exact_bits_per_sample(codec.codec_id)) / 8 * codec.ch_layout.nb_channels;
}

/// Some sound lies in an AVI as one whole frame a chunk, and its parser would fail.
bool needsNoParser(const AVCodecParameters& codec)
{
    return codec.codec_id == AV_CODEC_ID_FLAC ||
           (codec.codec_id == AV_CODEC_ID_AAC && codec.extradata_size > 0);
}

}    // namespace

AviInput::AviInput(std::shared_ptr<const SourceFile> file, const AviFile& avi, const AviSound& sound)
    : file_(std::move(file)), walk_(*file_, avi, sound.stream), about_(avcodec_alloc_context3(nullptr))
{
    const AVCodecParameters& codec = *sound.codec.parameters;
    avcodec_parameters_to_context(about_.get(), &codec);
    if (!needsNoParser(codec)) parser_.reset(av_parser_init(codec.codec_id));
    chooseCuts(sound);
}

AviInput::~AviInput() = default;

void AviInput::FreeParser::operator()(AVCodecParserContext* parser) const
{
    av_parser_close(parser);
}

void AviInput::FreeCodec::operator()(AVCodecContext* codec) const
{
    avcodec_free_context(&codec);
}

AVCodecID AviInput::codec() const
{
    return about_->codec_id;
}

/// Where the codec doesn't care, the pieces are as large as is good for speed.
void AviInput::chooseCuts(const AviSound& sound)
{
    const AVCodecParameters& codec = *sound.codec.parameters;
    const std::int64_t unit = sound.unitBytes < smallUnit ? sound.unitBytes * smallUnits : sound.unitBytes;
    const std::int64_t frame = pcmFrameBytes(codec);
    const bool wma = codec.codec_id == AV_CODEC_ID_WMAV1 || codec.codec_id == AV_CODEC_ID_WMAV2;
    sizeTells_ = !parser_ && !wma;
    if (frame > 0 && unit % frame == 0) {
        pieceBytes_ = pcmFrames * frame;
        countedBytes_ = countedFrames * frame;
        return;
    }
    divisible_ = unit > 0 || (parser_ && isStream(codec.codec_id));
    pieceBytes_ = countedBytes_ = unit > 0 ? unit : divisible_ ? streamPiece : longestWhole;
}

bool AviInput::read(AVPacket& packet)
{
    av_packet_unref(&packet);
    if (!parser_) return nextPiece(pieceBytes_) && readPiece(packet);
    if (!parse(packet)) return false;
    return av_packet_make_refcounted(&packet) == 0;
}

bool AviInput::readToCount(AVPacket& packet)
{
    if (parser_) {
        av_packet_unref(&packet);
        return parse(packet);
    }
    if (!sizeTells_) return read(packet);
    av_packet_unref(&packet);
    if (!nextPiece(countedBytes_)) return false;
    packet.size = static_cast<int>(piece_.bytes);
    return true;
}

/// Takes the next piece off the stream: at most that much, and from one chunk only.
bool AviInput::nextPiece(std::int64_t most)
{
    if (chunk_.bytes == 0) {
        const auto next = walk_.next();
        if (!next) return false;
        chunk_ = *next;
        tooLong_ = !divisible_ && chunk_.bytes > most;
        if (tooLong_) return false;
    }
    piece_ = {chunk_.at, std::min(chunk_.bytes, most)};
    chunk_.at += piece_.bytes;
    chunk_.bytes -= piece_.bytes;
    return true;
}

bool AviInput::readPiece(AVPacket& packet)
{
    if (av_new_packet(&packet, static_cast<int>(piece_.bytes)) < 0) throw std::bad_alloc();
    const std::size_t got = walk_.window().read(piece_.at, packet.data, std::size_t(piece_.bytes));
    av_shrink_packet(&packet, static_cast<int>(got));
    return got > 0;
}

/// The next packet that the parser finds. Its bytes are the parser's.
bool AviInput::parse(AVPacket& packet)
{
    while (packet.size == 0) {
        if (parsed_ == inputBytes_ && !ended_) ended_ = !fetch();
        const int there = static_cast<int>(inputBytes_ - parsed_);
        const int used = av_parser_parse2(parser_.get(), about_.get(), &packet.data, &packet.size,
                                          ended_ ? nullptr : input_.data() + parsed_, there, AV_NOPTS_VALUE,
                                          AV_NOPTS_VALUE, -1);
        parsed_ += static_cast<std::size_t>(std::max(used, 0));
        if (ended_ && packet.size == 0) return false;
    }
    packet.duration = parser_->duration;
    return true;
}

bool AviInput::fetch()
{
    parsed_ = inputBytes_ = 0;
    if (!nextPiece(pieceBytes_)) return false;
    input_.resize(std::max(input_.size(), std::size_t(piece_.bytes) + AV_INPUT_BUFFER_PADDING_SIZE));
    inputBytes_ = walk_.window().read(piece_.at, input_.data(), std::size_t(piece_.bytes));
    std::memset(input_.data() + inputBytes_, 0, AV_INPUT_BUFFER_PADDING_SIZE);
    return inputBytes_ > 0;
}
