// The MP3 format object: the 22 properties, and the commands that set many of them at once.
#pragma once

#include "core/AudioEngine.h"

class LameFormat : public Mp3Format {
public:
    LameFormat() = default;

    /// A copy of another object's properties.
    explicit LameFormat(const Mp3Format& properties) : Mp3Format(properties) {}

    void SetCommandLine(const QString& text) override;
    void ApplyPreset(std::int16_t number) override;
    void ApplyAltPreset(std::int16_t number) override;
};
