#include "engine/FrameConverter.h"

#include "core/Errors.h"

extern "C" {
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
}

#include <algorithm>

namespace {

constexpr int anyRate = 48000;    // stays as it is, so it may be any

/// Some containers tell only the number of channels; then the usual order stands for them.
AVChannelLayout namedLayout(const AVChannelLayout& layout)
{
    AVChannelLayout named{};
    if (layout.order == AV_CHANNEL_ORDER_NATIVE)
        av_channel_layout_copy(&named, &layout);
    else
        av_channel_layout_default(&named, layout.nb_channels);
    return named;
}

}    // namespace

FrameConverter::FrameConverter() = default;
FrameConverter::~FrameConverter()
{
    av_channel_layout_uninit(&layout_);
}

void FrameConverter::Free::operator()(SwrContext* swr) const
{
    swr_free(&swr);
}

SoundFormat FrameConverter::formatOf(const AVFrame& frame)
{
    return {frame.sample_rate, std::clamp(frame.ch_layout.nb_channels, 1, 2)};
}

void FrameConverter::append(const AVFrame& frame, SampleArray& out)
{
    append(frame.extended_data, frame.nb_samples, static_cast<AVSampleFormat>(frame.format), frame.ch_layout,
           out);
}

void FrameConverter::append(const std::uint8_t* const* planes, int frames, AVSampleFormat format,
                            const AVChannelLayout& layout, SampleArray& out)
{
    if (!swr_ || format != format_ || av_channel_layout_compare(&layout, &layout_) != 0)
        prepare(format, layout);
    const std::size_t before = out.size();
    out.resize(before + std::size_t(frames) * channels_);
    auto* to = reinterpret_cast<std::uint8_t*>(out.data() + before);
    const int made = swr_convert(swr_.get(), &to, frames, const_cast<const std::uint8_t**>(planes), frames);
    out.resize(before + std::size_t(std::max(made, 0)) * channels_);
}

void FrameConverter::prepare(AVSampleFormat format, const AVChannelLayout& layout)
{
    AVChannelLayout from = namedLayout(layout);
    AVChannelLayout to;
    av_channel_layout_default(&to, std::clamp(layout.nb_channels, 1, 2));
    SwrContext* swr = nullptr;
    swr_alloc_set_opts2(&swr, from.nb_channels > 2 ? &to : &from, AV_SAMPLE_FMT_S16, anyRate, &from, format,
                        anyRate, 0, nullptr);
    swr_.reset(swr);
    if (!swr || swr_init(swr) < 0) {
        swr_.reset();
        throw EngineError(QStringLiteral("no way to play %1 channels").arg(layout.nb_channels));
    }
    av_channel_layout_copy(&layout_, &layout);
    format_ = format;
    channels_ = to.nb_channels;
}
