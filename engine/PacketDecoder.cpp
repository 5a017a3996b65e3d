#include "engine/PacketDecoder.h"

#include "core/Errors.h"

extern "C" {
#include <libavformat/avformat.h>
}

std::shared_ptr<AVCodecParameters> newParameters()
{
    const auto release = [](AVCodecParameters* p) { avcodec_parameters_free(&p); };
    return {avcodec_parameters_alloc(), release};
}

CodecSetup codecSetup(const AVStream& stream)
{
    const auto parameters = newParameters();
    avcodec_parameters_copy(parameters.get(), stream.codecpar);
    return {parameters, stream.time_base};
}

bool canDecode(const CodecSetup& setup)
{
    try {
        PacketDecoder tried(setup);
        return true;
    } catch (const EngineError&) {
        return false;
    }
}

SampleArray& BlockList::samplesFor(const SoundFormat& format)
{
    if (used_ > 0 && blocks_[used_ - 1].format == format) return blocks_[used_ - 1].samples;
    if (used_ == blocks_.size()) blocks_.emplace_back();
    Block& block = blocks_[used_++];
    block.format = format;
    block.samples.clear();
    return block.samples;
}

std::size_t BlockList::elements() const
{
    std::size_t sum = 0;
    for (std::size_t i = 0; i < used_; ++i) sum += blocks_[i].samples.size();
    return sum;
}

PacketDecoder::PacketDecoder(const CodecSetup& setup) : frame_(av_frame_alloc())
{
    av_log_set_level(AV_LOG_QUIET);
    const AVCodec* kind = avcodec_find_decoder(setup.parameters->codec_id);
    codec_.reset(avcodec_alloc_context3(kind));
    if (!kind || !codec_ || avcodec_parameters_to_context(codec_.get(), setup.parameters.get()) < 0)
        throw EngineError(QStringLiteral("no decoder for this sound"));
    codec_->pkt_timebase = setup.timeBase;
    codec_->thread_count = 1;
    if (avcodec_open2(codec_.get(), kind, nullptr) < 0)
        throw EngineError(QStringLiteral("the decoder refuses this sound"));
}

bool PacketDecoder::decode(const AVPacket* packet, BlockList* out)
{
    bool sound = avcodec_send_packet(codec_.get(), packet) >= 0;
    while (true) {
        const int got = avcodec_receive_frame(codec_.get(), frame_.get());
        if (got == AVERROR(EAGAIN) || got == AVERROR_EOF) return sound;
        if (got < 0) return false;
        if (out) sound = take(*out) && sound;
    }
}

CodecSetup PacketDecoder::setup() const
{
    const auto parameters = newParameters();
    avcodec_parameters_from_context(parameters.get(), codec_.get());
    return {parameters, codec_->pkt_timebase};
}

// A damaged frame can claim channels that nobody can play; it is left out like one that doesn't decode.
bool PacketDecoder::take(BlockList& out)
{
    if (frame_->sample_rate <= 0 || frame_->ch_layout.nb_channels <= 0) return false;
    try {
        converter_.append(*frame_, out.samplesFor(FrameConverter::formatOf(*frame_)));
        return true;
    } catch (const EngineError&) {
        return false;
    }
}
