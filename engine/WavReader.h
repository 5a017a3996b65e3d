// Reads uncompressed WAV and RF64. Every position is reached by arithmetic, without a thread and without a
// buffer of its own, which is what playing and cutting the work file live on.
#pragma once

#include "engine/Decoder.h"
#include "engine/FrameConverter.h"
#include "engine/WavLayout.h"

class WavReader : public Decoder {
public:
    /// Throws EngineError where the channels can't be brought to two.
    WavReader(std::shared_ptr<const SourceFile> file, const WavLayout& layout);
    ~WavReader() override;

    const SoundInfo& info() const override { return info_; }
    void read(SampleArray& out, std::int64_t frames) override;
    void seek(std::int64_t frame) override { position_ = frame; }

private:
    void readPlain(SampleArray& out, std::int64_t frames);
    void readOther(SampleArray& out, std::int64_t frames);
    std::int64_t fetch(void* to, std::int64_t frames);

    std::shared_ptr<const SourceFile> file_;
    WavLayout layout_;
    SoundInfo info_;
    std::int64_t position_ = 0;
    AVSampleFormat sampleFormat_;
    AVChannelLayout channelLayout_{};
    FrameConverter converter_;
    std::vector<std::uint8_t> raw_;    ///< one piece as it stands in the file
};
