#include "engine/Mp3Encoder.h"

#include "core/Errors.h"
#include "engine/Mp3Rates.h"
#include "engine/OutputFile.h"

#include <algorithm>

namespace {

constexpr int blockFrames = 4608;
constexpr std::size_t codedRoom = blockFrames * 5 / 4 + 7200;    // what LAME asks for at most

QString modeText(const Mp3Format& properties)
{
    static constexpr const char* modes[] = {"Stereo", "Joint Stereo", "Forced Joint Stereo", "Dual Channels"};
    if (properties.FormatChannels <= 1) return "Mono";
    return modes[std::clamp(properties.StereoMode, 1, 4) - 1];
}

QString bitrateText(const Mp3Format& properties)
{
    if (properties.VbrMethod < 0)
        return QString("%1 kbit/s")
            .arg(nearestMp3Bitrate(nearestMp3Rate(properties.FormatRate), properties.FormatBitrate));
    if (properties.VbrMethod >= 4)
        return QString("ABR %1 kbit/s").arg(std::clamp<int>(properties.AbrBitrate, 4, 320));
    return QString("VBR quality %1").arg(properties.VbrQuality);
}

}

std::int32_t Mp3Output::rate() const
{
    return nearestMp3Rate(properties_.FormatRate);
}

std::int32_t Mp3Output::channels() const
{
    return properties_.FormatChannels <= 1 ? 1 : 2;
}

QString Mp3Output::text() const
{
    return QString("MP3, %1 Hz, %2, %3").arg(rate()).arg(modeText(properties_), bitrateText(properties_));
}

std::unique_ptr<Encoder> Mp3Output::makeEncoder(OutputFile& file) const
{
    return std::make_unique<Mp3Encoder>(file, std::make_shared<LameApi>(lameFile_), properties_);
}

Mp3Encoder::Mp3Encoder(OutputFile& file, std::shared_ptr<const LameApi> api, const Mp3Format& properties)
    : file_(file), api_(std::move(api)), lame_(*api_), channels_(properties.FormatChannels <= 1 ? 1 : 2),
      coded_(codedRoom)
{
    applyToLame(properties, *api_, lame_.get());
    lame_.initParams();
}

void Mp3Encoder::write(std::span<const std::int16_t> samples)
{
    while (!samples.empty()) {
        const auto block = samples.first(std::min(samples.size(), static_cast<std::size_t>(blockFrames) *
                                                                      static_cast<std::size_t>(channels_)));
        // LAME only reads what it is given, whatever its prototype says.
        auto* pcm = const_cast<std::int16_t*>(block.data());
        const int frames = static_cast<int>(block.size()) / channels_;
        const int room = static_cast<int>(coded_.size());
        writeCoded(channels_ == 1 ? api_->encodeBuffer(lame_.get(), pcm, pcm, frames, coded_.data(), room)
                                  : api_->encodeInterleaved(lame_.get(), pcm, frames, coded_.data(), room));
        samples = samples.subspan(block.size());
    }
}

void Mp3Encoder::finish()
{
    writeCoded(api_->encodeFlush(lame_.get(), coded_.data(), static_cast<int>(coded_.size())));
    writeHeaderFrame();
}

void Mp3Encoder::writeCoded(int count)
{
    if (count < 0) throw EngineError(QString("LAME: encoding failed (%1)").arg(count));
    file_.write(coded_.data(), static_cast<std::size_t>(count));
}

// LAME keeps a frame free at the front of the stream, where the frame is long enough to hold the header.
void Mp3Encoder::writeHeaderFrame()
{
    const std::size_t size = api_->getLametagFrame(lame_.get(), coded_.data(), coded_.size());
    if (size > 0 && size <= coded_.size()) file_.writeAt(0, coded_.data(), size);
}
