#include "engine/WavReader.h"

#include "engine/FormatText.h"

#include <algorithm>
#include <bit>

static_assert(std::endian::native == std::endian::little, "samples are read from the file as they stand");

namespace {

constexpr std::int64_t pieceFrames = 4096;

AVSampleFormat formatFor(WavLayout::Sample sample)
{
    switch (sample) {
    case WavLayout::Sample::unsigned8:
        return AV_SAMPLE_FMT_U8;
    case WavLayout::Sample::signed16:
        return AV_SAMPLE_FMT_S16;
    case WavLayout::Sample::signed24:
    case WavLayout::Sample::signed32:
        return AV_SAMPLE_FMT_S32;
    case WavLayout::Sample::float32:
        return AV_SAMPLE_FMT_FLT;
    case WavLayout::Sample::float64:
        break;
    }
    return AV_SAMPLE_FMT_DBL;
}

AVChannelLayout layoutFor(const WavLayout& wav)
{
    AVChannelLayout layout{};
    if (wav.channels != std::popcount(wav.channelMask) ||
        av_channel_layout_from_mask(&layout, wav.channelMask) < 0)
        av_channel_layout_default(&layout, wav.channels);
    return layout;
}

/// Three bytes a sample to four, from the end so that it can be done in place.
void widen24(std::vector<std::uint8_t>& raw, std::size_t samples)
{
    for (std::size_t i = samples; i-- > 0;) {
        const std::uint8_t low = raw[3 * i], middle = raw[3 * i + 1], high = raw[3 * i + 2];
        raw[4 * i] = 0;
        raw[4 * i + 1] = low;
        raw[4 * i + 2] = middle;
        raw[4 * i + 3] = high;
    }
}

}    // namespace

WavReader::WavReader(std::shared_ptr<const SourceFile> file, const WavLayout& layout)
    : file_(std::move(file)), layout_(layout), sampleFormat_(formatFor(layout.sample)),
      channelLayout_(layoutFor(layout))
{
    info_.format = {layout.rate, std::min(layout.channels, 2)};
    info_.total = layout.frames();
    info_.text = formatText({QStringLiteral("WAV")}, info_.format, bitsText(layout.bits));
    converter_.prepare(sampleFormat_, channelLayout_);
}

WavReader::~WavReader()
{
    av_channel_layout_uninit(&channelLayout_);
}

void WavReader::read(SampleArray& out, std::int64_t frames)
{
    frames = std::min(frames, info_.total - position_);
    if (frames <= 0) return;
    if (layout_.sample == WavLayout::Sample::signed16 && layout_.channels <= 2)
        readPlain(out, frames);
    else
        readOther(out, frames);
}

void WavReader::readPlain(SampleArray& out, std::int64_t frames)
{
    const std::size_t before = out.size();
    out.resize(before + static_cast<std::size_t>(frames * layout_.channels));
    const std::int64_t got = fetch(out.data() + before, frames);
    out.resize(before + static_cast<std::size_t>(got * layout_.channels));
}

void WavReader::readOther(SampleArray& out, std::int64_t frames)
{
    const std::size_t fileBytes = static_cast<std::size_t>(layout_.frameBytes);
    const std::size_t widest = std::max<std::size_t>(fileBytes, 4 * std::size_t(layout_.channels));
    raw_.resize(widest * pieceFrames);
    for (std::int64_t got = 1; frames > 0 && got > 0; frames -= got) {
        got = fetch(raw_.data(), std::min(frames, pieceFrames));
        if (layout_.sample == WavLayout::Sample::signed24)
            widen24(raw_, static_cast<std::size_t>(got) * layout_.channels);
        const std::uint8_t* plane = raw_.data();
        converter_.append(&plane, static_cast<int>(got), sampleFormat_, channelLayout_, out);
    }
}

/// Whole frames only; the file may have been cut shorter since it was opened.
std::int64_t WavReader::fetch(void* to, std::int64_t frames)
{
    const std::size_t got = file_->readAt(layout_.dataStart + position_ * layout_.frameBytes, to,
                                          static_cast<std::size_t>(frames * layout_.frameBytes));
    const std::int64_t whole = static_cast<std::int64_t>(got) / layout_.frameBytes;
    position_ += whole;
    return whole;
}
