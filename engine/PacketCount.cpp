#include "engine/PacketCount.h"

#include "engine/Converter.h"
#include "engine/Mp3Packet.h"

extern "C" {
#include <libavutil/intreadwrite.h>
#include <libavutil/mathematics.h>
}

#include <algorithm>

namespace {

bool isMpeg(AVCodecID id)
{
    return id == AV_CODEC_ID_MP3 || id == AV_CODEC_ID_MP2 || id == AV_CODEC_ID_MP1;
}

bool isWma(AVCodecID id)
{
    return id == AV_CODEC_ID_WMAV1 || id == AV_CODEC_ID_WMAV2;
}

int wmaFrameLength(const AVCodecParameters& parameters)
{
    const int rate = parameters.sample_rate;
    if (rate <= 16000) return 512;
    if (rate <= 22050 || (rate <= 32000 && parameters.codec_id == AV_CODEC_ID_WMAV1)) return 1024;
    return 2048;
}

/// Whether frames run on across the packets' borders: bit 1 of the flags in the stream's header.
bool wmaReservoir(const AVCodecParameters& parameters)
{
    const int at = parameters.codec_id == AV_CODEC_ID_WMAV1 ? 2 : 4;
    return parameters.extradata_size >= at + 2 && (AV_RL16(parameters.extradata + at) & 2);
}

}    // namespace

WmaPacketCount::WmaPacketCount(const AVCodecParameters& parameters)
    : reservoir_(wmaReservoir(parameters)), blockBytes_(parameters.block_align),
      frameLength_(wmaFrameLength(parameters))
{}

void WmaPacketCount::add(const AVPacket& packet)
{
    const int step = blockBytes_ > 0 ? blockBytes_ : std::max(packet.size, 1);
    for (int at = 0; at + step <= packet.size; at += step) count_ += reservoir_ ? packet.data[at] & 15 : 1;
}

std::int64_t WmaPacketCount::total() const
{
    const int begun = reservoir_ ? 1 : 0;    // the first packet has no beginning of a frame before it
    return std::max<std::int64_t>(count_ - begun + 1 - 2, 0) * frameLength_;
}

PacketCount::PacketCount(CodecSetup setup) : setup_(std::move(setup))
{
    if (isWma(setup_.parameters->codec_id)) wma_.emplace(*setup_.parameters);
}

void PacketCount::add(const AVPacket& packet)
{
    if (packets_++ == 0 && packet.pts != AV_NOPTS_VALUE) firstEnd_ = packet.pts + packet.duration;
    bytes_ += packet.size;
    addTrim(packet);
    if (wma_)
        wma_->add(packet);
    else if (!isMpeg(setup_.parameters->codec_id) || !addMpeg(packet)) {
        auto* parameters = const_cast<AVCodecParameters*>(setup_.parameters.get());
        const int frames = av_get_audio_frame_duration2(parameters, packet.size);
        if (frames > 0)
            addStretch(parameters->sample_rate, frames);
        else
            ticks_ += std::max<std::int64_t>(packet.duration, 0);
    }
}

bool PacketCount::addMpeg(const AVPacket& packet)
{
    const auto head = parseMp3Packet({packet.data, static_cast<std::size_t>(packet.size)});
    if (head) addStretch(head->rate, head->frames);
    return head.has_value();
}

void PacketCount::addTrim(const AVPacket& packet)
{
    std::size_t bytes = 0;
    const std::uint8_t* trim = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &bytes);
    if (trim && bytes >= 8) trimmed_ += std::int64_t(AV_RL32(trim)) + AV_RL32(trim + 4);
}

void PacketCount::addStretch(int rate, std::int64_t frames)
{
    const auto known =
        std::find_if(stretches_.begin(), stretches_.end(), [&](const Stretch& s) { return s.rate == rate; });
    if (known != stretches_.end())
        known->frames += frames;
    else
        stretches_.push_back({rate, frames});
}

std::int64_t PacketCount::total(int rate) const
{
    if (wma_) return wma_->total();
    std::int64_t frames = av_rescale_q(ticks_, setup_.timeBase, {1, rate}) - trimmed_;
    for (const Stretch& stretch : stretches_)
        if (stretch.rate > 0) frames += Converter::convertedLength(stretch.frames, stretch.rate, rate);
    return std::max<std::int64_t>(frames, 0);
}

std::int64_t PacketCount::bitrate(int rate) const
{
    const std::int64_t frames = total(rate) + trimmed_;
    return frames > 0 ? bytes_ * 8 * rate / frames : 0;
}
