#include "engine/FfmpegInput.h"

#include "core/Errors.h"

#include <array>
#include <cstdio>

namespace {

constexpr int ioBytes = 32 * 1024;
constexpr int probeBytes = 1024 * 1024;
constexpr int indexBytes = 64 * 1024;    // nobody seeks, so the libraries' own seek tables may stay small
constexpr char containers[] = "wav,mp3,ogg,asf,avi";

/// The bytes of the ID3v2 tags in front. A tag can hold pictures of many megabytes, which would hide the
/// sound from the search for the kind of file and lie in memory for nothing.
std::int64_t leadingTagBytes(const SourceFile& file)
{
    std::int64_t at = 0;
    std::array<std::uint8_t, 10> head;
    while (file.readAt(at, head.data(), head.size()) == head.size()) {
        if (head[0] != 'I' || head[1] != 'D' || head[2] != '3') break;
        std::int64_t bytes = head.size() + ((head[5] & 0x10) ? head.size() : 0);
        bytes += (head[6] & 0x7f) << 21 | (head[7] & 0x7f) << 14 | (head[8] & 0x7f) << 7 | (head[9] & 0x7f);
        if (at + bytes >= file.size()) break;
        at += bytes;
    }
    return at;
}

}    // namespace

FfmpegInput::FfmpegInput(std::shared_ptr<const SourceFile> file)
    : file_(std::move(file)), start_(leadingTagBytes(*file_))
{
    av_log_set_level(AV_LOG_QUIET);
    auto* buffer = static_cast<std::uint8_t*>(av_malloc(ioBytes));
    io_ = avio_alloc_context(buffer, ioBytes, 0, this, &readBytes, nullptr, &seekBytes);
    openContext();
}

FfmpegInput::~FfmpegInput()
{
    avformat_close_input(&context_);
    if (io_) av_freep(&io_->buffer);
    avio_context_free(&io_);
}

void FfmpegInput::openContext()
{
    context_ = avformat_alloc_context();
    context_->pb = io_;
    context_->probesize = probeBytes;
    context_->format_probesize = probeBytes;
    context_->max_index_size = indexBytes;
    context_->format_whitelist = av_strdup(containers);
    const QByteArray name = file_->path().toUtf8();
    const bool opened = avformat_open_input(&context_, name.constData(), nullptr, nullptr) == 0;
    if (opened && avformat_find_stream_info(context_, nullptr) >= 0) return;

    avformat_close_input(&context_);
    av_freep(&io_->buffer);
    avio_context_free(&io_);
    throw EngineError(QStringLiteral("%1 is no sound file").arg(file_->path()));
}

QString FfmpegInput::container() const
{
    return QString::fromLatin1(context_->iformat->name);
}

std::vector<const AVStream*> FfmpegInput::soundStreams() const
{
    std::vector<const AVStream*> found;
    for (unsigned i = 0; i < context_->nb_streams; ++i)
        if (context_->streams[i]->codecpar->codec_type == AVMEDIA_TYPE_AUDIO)
            found.push_back(context_->streams[i]);
    return found;
}

void FfmpegInput::choose(int index)
{
    chosen_ = index;
    for (unsigned i = 0; i < context_->nb_streams; ++i)
        context_->streams[i]->discard = int(i) == index ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
}

bool FfmpegInput::read(AVPacket& packet)
{
    av_packet_unref(&packet);
    while (av_read_frame(context_, &packet) >= 0) {
        if (packet.stream_index == chosen_) return true;
        av_packet_unref(&packet);
    }
    return false;
}

int FfmpegInput::readBytes(void* self, std::uint8_t* to, int bytes)
{
    auto& input = *static_cast<FfmpegInput*>(self);
    const auto got = input.file_->readAt(input.start_ + input.position_, to, static_cast<std::size_t>(bytes));
    input.position_ += static_cast<std::int64_t>(got);
    return got > 0 ? static_cast<int>(got) : AVERROR_EOF;
}

std::int64_t FfmpegInput::seekBytes(void* self, std::int64_t offset, int whence)
{
    auto& input = *static_cast<FfmpegInput*>(self);
    const std::int64_t length = input.file_->size() - input.start_;
    if (whence & AVSEEK_SIZE) return length;
    if ((whence & ~AVSEEK_FORCE) == SEEK_CUR) offset += input.position_;
    if ((whence & ~AVSEEK_FORCE) == SEEK_END) offset += length;
    if (offset < 0) return AVERROR(EINVAL);
    return input.position_ = offset;
}
