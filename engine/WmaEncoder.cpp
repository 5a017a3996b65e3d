#include "engine/WmaEncoder.h"

#include "core/Errors.h"
#include "engine/OutputFile.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
}

#include <algorithm>

namespace {

constexpr int ioBlock = 64 * 1024;

template <typename T>
T* made(T* object)
{
    if (object == nullptr) throw EngineError("WMA: out of memory");
    return object;
}

void freeIo(AVIOContext* io)
{
    av_freep(&io->buffer);
    avio_context_free(&io);
}

}

std::unique_ptr<Encoder> WmaFormat::makeEncoder(OutputFile& file) const
{
    return std::make_unique<WmaEncoder>(file, profile_);
}

WmaEncoder::WmaEncoder(OutputFile& file, const WmaProfile& profile)
    : file_(file), codec_(nullptr, [](AVCodecContext* c) { avcodec_free_context(&c); }), io_(nullptr, freeIo),
      container_(nullptr, avformat_free_context), frame_(nullptr, [](AVFrame* f) { av_frame_free(&f); }),
      packet_(nullptr, [](AVPacket* p) { av_packet_free(&p); })
{
    av_log_set_level(AV_LOG_QUIET);
    openCodec(profile);
    openContainer(profile);
    frame_.reset(made(av_frame_alloc()));
    packet_.reset(made(av_packet_alloc()));
    frame_->format = codec_->sample_fmt;
    frame_->nb_samples = codec_->frame_size;
    frame_->sample_rate = codec_->sample_rate;
    check(av_channel_layout_copy(&frame_->ch_layout, &codec_->ch_layout), "frame");
    check(av_frame_get_buffer(frame_.get(), 0), "frame");

    // Decoders drop two frames at the start, but this encoder is late by one only: a frame of silence goes
    // ahead.
    padFrame();
}

WmaEncoder::~WmaEncoder() = default;

void WmaEncoder::openCodec(const WmaProfile& profile)
{
    const AVCodec* encoder = avcodec_find_encoder(AV_CODEC_ID_WMAV2);
    if (encoder == nullptr) throw EngineError("WMA: no encoder");
    codec_.reset(made(avcodec_alloc_context3(encoder)));
    codec_->sample_rate = profile.rate;
    codec_->bit_rate = profile.bitrate * 1000;
    codec_->sample_fmt = AV_SAMPLE_FMT_FLTP;
    codec_->time_base = {1, profile.rate};
    codec_->thread_count = 1;
    av_channel_layout_default(&codec_->ch_layout, profile.channels);
    check(avcodec_open2(codec_.get(), encoder, nullptr), "encoder");
}

void WmaEncoder::openContainer(const WmaProfile& profile)
{
    AVFormatContext* container = nullptr;
    check(avformat_alloc_output_context2(&container, nullptr, "asf", nullptr), "container");
    container_.reset(container);
    container->flags |= AVFMT_FLAG_BITEXACT;
    stream_ = made(avformat_new_stream(container, nullptr));
    stream_->time_base = codec_->time_base;
    check(avcodec_parameters_from_context(stream_->codecpar, codec_.get()), "stream");
    openStreamToFile();

    // Frames of the high bitrates fit badly into packets of the usual size: the file would nearly double.
    AVDictionary* options = nullptr;
    if (profile.bitrate >= 160) av_dict_set(&options, "packet_size", "8000", 0);
    const int result = avformat_write_header(container, &options);
    av_dict_free(&options);
    check(result, "header");
}

void WmaEncoder::openStreamToFile()
{
    auto* buffer = made(static_cast<unsigned char*>(av_malloc(ioBlock)));
    AVIOContext* io = avio_alloc_context(buffer, ioBlock, 1, this, nullptr, writeBytes, seekBytes);
    if (io == nullptr) av_free(buffer);
    io_.reset(made(io));
    container_->pb = io;
    container_->flags |= AVFMT_FLAG_CUSTOM_IO;
}

void WmaEncoder::write(std::span<const std::int16_t> samples)
{
    const auto channels = static_cast<std::size_t>(codec_->ch_layout.nb_channels);
    for (std::size_t at = 0; at + channels <= samples.size();) {
        const std::size_t frames = (samples.size() - at) / channels;
        const std::size_t count = std::min(frames, static_cast<std::size_t>(codec_->frame_size - filled_));
        for (std::size_t channel = 0; channel < channels; ++channel) {
            float* plane = reinterpret_cast<float*>(frame_->extended_data[channel]) + filled_;
            for (std::size_t i = 0; i < count; ++i)
                plane[i] = static_cast<float>(samples[at + i * channels + channel]) / 32768.0F;
        }
        at += count * channels;
        filled_ += static_cast<int>(count);
        if (filled_ == codec_->frame_size) encodeFrame();
    }
}

void WmaEncoder::finish()
{
    if (filled_ > 0) padFrame();
    padFrame();    // the decoder gives the last frame only when another follows
    drain(nullptr);
    check(av_write_trailer(container_.get()), "trailer");
    avio_flush(io_.get());
    check(io_->error, "file");
}

/// Fills the frame up with silence and encodes it.
void WmaEncoder::padFrame()
{
    for (int channel = 0; channel < codec_->ch_layout.nb_channels; ++channel) {
        float* plane = reinterpret_cast<float*>(frame_->extended_data[channel]);
        std::fill(plane + filled_, plane + codec_->frame_size, 0.0F);
    }
    encodeFrame();
}

void WmaEncoder::encodeFrame()
{
    filled_ = 0;
    frame_->pts = frameStart_;
    frameStart_ += codec_->frame_size;
    drain(frame_.get());
    check(av_frame_make_writable(frame_.get()), "frame");
}

void WmaEncoder::drain(AVFrame* frame)
{
    check(avcodec_send_frame(codec_.get(), frame), "encoding");
    int result;
    while ((result = avcodec_receive_packet(codec_.get(), packet_.get())) == 0) {
        packet_->stream_index = 0;
        av_packet_rescale_ts(packet_.get(), codec_->time_base, stream_->time_base);
        check(av_write_frame(container_.get(), packet_.get()), "writing");
        av_packet_unref(packet_.get());
    }
    if (result != AVERROR(EAGAIN) && result != AVERROR_EOF) check(result, "encoding");
    check(io_->error, "writing");
}

/// What the file threw comes first: FFmpeg only knows that something failed.
void WmaEncoder::check(int result, const char* step)
{
    if (result >= 0) return;
    if (fileError_) std::rethrow_exception(fileError_);
    throw EngineError(QString("WMA: %1 failed").arg(step));
}

int WmaEncoder::writeBytes(void* opaque, std::uint8_t* bytes, int count)
{
    auto* self = static_cast<WmaEncoder*>(opaque);
    try {
        const auto size = static_cast<std::size_t>(count);
        if (self->position_ == self->file_.size())
            self->file_.write(bytes, size);
        else
            self->file_.writeAt(self->position_, bytes, size);
        self->position_ += count;
        return count;
    } catch (...) {
        self->fileError_ = std::current_exception();
        return AVERROR(EIO);
    }
}

std::int64_t WmaEncoder::seekBytes(void* opaque, std::int64_t offset, int whence)
{
    auto* self = static_cast<WmaEncoder*>(opaque);
    if (whence == AVSEEK_SIZE) return self->file_.size();
    if (whence == SEEK_CUR)
        offset += self->position_;
    else if (whence == SEEK_END)
        offset += self->file_.size();
    return self->position_ = offset;
}
