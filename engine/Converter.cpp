#include "engine/Converter.h"

#include "core/Errors.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

#include <algorithm>

namespace {

constexpr int pieceFrames = 16384;    // bounds the buffers, whatever size of array comes in
constexpr int filterTaps = 64;        // at equal rates; more of them when the rate goes down

void checkForm(int rate, int channels)
{
    if (rate <= 0 || channels < 1 || channels > 2)
        throw EngineError(QStringLiteral("no conversion for %1 Hz, %2 channels").arg(rate).arg(channels));
}

void meanOfPairs(const std::int16_t* pairs, int frames, SampleArray& out)
{
    out.resize(frames);
    for (int i = 0; i < frames; ++i)
        out[i] = static_cast<std::int16_t>((pairs[2 * i] + pairs[2 * i + 1]) / 2);
}

}    // namespace

bool Converter::needed(int inRate, int inChannels, int outRate, int outChannels)
{
    return inRate != outRate || inChannels != outChannels;
}

std::int64_t Converter::convertedLength(std::int64_t frames, int inRate, int outRate)
{
    return (frames * outRate + inRate / 2) / inRate;
}

Converter::Converter(int inRate, int inChannels, int outRate, int outChannels)
    : inRate_(inRate), inChannels_(inChannels), outRate_(outRate), outChannels_(outChannels),
      rateChannels_(std::min(inChannels, outChannels))
{
    checkForm(inRate, inChannels);
    checkForm(outRate, outChannels);
    start();
}

Converter::~Converter() = default;
Converter::Converter(Converter&&) noexcept = default;
Converter& Converter::operator=(Converter&&) noexcept = default;

void Converter::FreeSwr::operator()(SwrContext* swr) const
{
    swr_free(&swr);
}

// Channels change outside the resampler: its own mono to stereo would lower the level by 3 dB.
void Converter::start()
{
    framesIn_ = framesOut_ = 0;
    swr_.reset();
    if (inRate_ == outRate_) return;

    AVChannelLayout layout;
    av_channel_layout_default(&layout, rateChannels_);
    SwrContext* swr = nullptr;
    swr_alloc_set_opts2(&swr, &layout, AV_SAMPLE_FMT_S16, outRate_, &layout, AV_SAMPLE_FMT_S16, inRate_, 0,
                        nullptr);
    swr_.reset(swr);
    if (!swr || av_opt_set_sample_fmt(swr, "internal_sample_fmt", AV_SAMPLE_FMT_FLTP, 0) < 0 ||
        av_opt_set_int(swr, "filter_size", filterTaps, 0) < 0 || swr_init(swr) < 0)
        throw EngineError(QStringLiteral("no conversion from %1 to %2 Hz").arg(inRate_).arg(outRate_));
}

void Converter::push(std::span<const std::int16_t> interleaved, SampleArray& out)
{
    const std::size_t pieceElements = std::size_t(pieceFrames) * inChannels_;
    while (interleaved.size() >= std::size_t(inChannels_)) {
        const auto piece = interleaved.first(std::min(pieceElements, interleaved.size()));
        interleaved = interleaved.subspan(piece.size());
        const int frames = static_cast<int>(piece.size()) / inChannels_;
        const std::int16_t* sound = piece.data();
        if (rateChannels_ < inChannels_) {
            meanOfPairs(sound, frames, mixed_);
            sound = mixed_.data();
        }
        framesIn_ += frames;
        if (swr_)
            convertRate(sound, frames, out);
        else
            append({sound, std::size_t(frames) * rateChannels_}, out);
    }
}

void Converter::flush(SampleArray& out)
{
    if (swr_ && framesIn_ > 0) finishRate(out);
    start();
}

void Converter::convertRate(const std::int16_t* frames, int count, SampleArray& out)
{
    const int room = swr_get_out_samples(swr_.get(), count) + 1;
    resampled_.resize(std::size_t(room) * rateChannels_);
    auto* to = reinterpret_cast<std::uint8_t*>(resampled_.data());
    const auto* from = reinterpret_cast<const std::uint8_t*>(frames);
    const int made = swr_convert(swr_.get(), &to, room, frames ? &from : nullptr, count);
    if (made < 0) throw EngineError(QStringLiteral("rate conversion failed"));
    framesOut_ += made;
    append({resampled_.data(), std::size_t(made) * rateChannels_}, out);
}

void Converter::finishRate(SampleArray& out)
{
    const std::int64_t wanted = convertedLength(framesIn_, inRate_, outRate_);
    // Less sound than the filter is long would never come out; silence behind it pushes it through.
    const int shortFrames = 2 * filterTaps * (1 + inRate_ / outRate_);
    if (framesIn_ < shortFrames) {
        const SampleArray silence(std::size_t(shortFrames) * rateChannels_);
        convertRate(silence.data(), shortFrames, out);
    }
    for (std::int64_t before = -1; before < framesOut_ && framesOut_ < wanted;) {
        before = framesOut_;
        convertRate(nullptr, 0, out);
    }
    const std::int64_t surplus = (framesOut_ - wanted) * outChannels_;
    out.resize(out.size() - static_cast<std::size_t>(std::clamp<std::int64_t>(surplus, 0, out.size())));
    if (surplus < 0) out.resize(out.size() + static_cast<std::size_t>(-surplus));
}

void Converter::append(std::span<const std::int16_t> frames, SampleArray& out) const
{
    if (outChannels_ == rateChannels_) {
        out.insert(out.end(), frames.begin(), frames.end());
        return;
    }
    std::size_t at = out.size();
    out.resize(at + 2 * frames.size());
    for (const std::int16_t value : frames) {
        out[at++] = value;
        out[at++] = value;
    }
}
