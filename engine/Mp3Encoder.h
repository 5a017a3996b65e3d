// MP3 by LAME.
#pragma once

#include "engine/Encoder.h"
#include "engine/LameApi.h"
#include "engine/LameFormat.h"

#include <vector>

/// MP3 output with a copy of the properties of a format object.
class Mp3Output : public OutputFormat {
public:
    /// `lameFile` is the library's file name. It is loaded when a file is started, not before.
    Mp3Output(const Mp3Format& properties, const QString& lameFile)
        : properties_(properties), lameFile_(lameFile)
    {}

    std::int32_t rate() const override;
    std::int32_t channels() const override;
    QString text() const override;
    std::unique_ptr<Encoder> makeEncoder(OutputFile& file) const override;

private:
    LameFormat properties_;
    QString lameFile_;
};

/// Gives the properties to an encoder that is not yet initialised, brought into the ranges that LAME takes.
void applyToLame(const Mp3Format& properties, const LameApi& api, lame_t lame);

class Mp3Encoder : public Encoder {
public:
    Mp3Encoder(OutputFile& file, std::shared_ptr<const LameApi> api, const Mp3Format& properties);

    void write(std::span<const std::int16_t> samples) override;
    void finish() override;

private:
    void writeCoded(int count);
    void writeHeaderFrame();

    OutputFile& file_;
    std::shared_ptr<const LameApi> api_;
    LameHandle lame_;
    std::int32_t channels_;
    std::vector<unsigned char> coded_;
};
