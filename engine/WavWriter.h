// Plain WAV, 16 bits. The header keeps room for the 64-bit sizes that a file needs beyond 4 GiB.
#pragma once

#include "engine/Encoder.h"

class WavFormat : public OutputFormat {
public:
    /// Throws EngineError for other than 16 bits, 1 or 2 channels, a positive rate.
    WavFormat(std::int32_t rate, std::int32_t channels, std::int32_t bits);

    std::int32_t rate() const override { return rate_; }
    std::int32_t channels() const override { return channels_; }
    QString text() const override;
    std::unique_ptr<Encoder> makeEncoder(OutputFile& file) const override;

private:
    std::int32_t rate_;
    std::int32_t channels_;
};

class WavWriter : public Encoder {
public:
    WavWriter(OutputFile& file, std::int32_t rate, std::int32_t channels);

    void write(std::span<const std::int16_t> samples) override;
    void finish() override;

    /// Appends silence of `frames` samples per channel as a hole in the file.
    void writeSilence(std::int64_t frames);

private:
    OutputFile& file_;
    std::int32_t rate_;
    std::int32_t channels_;
};
