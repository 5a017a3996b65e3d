// Rule: section `Mp3` of the settings: which key holds which property of the encoder, and how it is
// converted.
#pragma once

#include "core/AudioEngine.h"
#include "core/Numbers.h"

#include <variant>

using Mp3Property = std::variant<std::int16_t Mp3Format::*, std::int32_t Mp3Format::*, bool Mp3Format::*>;

struct Mp3Key {
    const char* key;
    Mp3Property property;
};

inline constexpr Mp3Key mp3Keys[] = {
    {"1", &Mp3Format::AbrBitrate},
    {"2", &Mp3Format::AthControl},
    {"3", &Mp3Format::FormatBitrate},
    {"4", &Mp3Format::BitReservoir},
    {"5", &Mp3Format::DifferentBlockTypes},
    {"6", &Mp3Format::FormatChannels},
    {"7", &Mp3Format::Emphasis},
    {"8", &Mp3Format::EncoderQuality},
    {"9", &Mp3Format::ErrorProtection},
    {"10", &Mp3Format::FormatRate},
    {"11", &Mp3Format::HighpassFrequency},
    {"12", &Mp3Format::HighpassWidth},
    {"13", &Mp3Format::LowpassFrequency},
    {"14", &Mp3Format::LowpassWidth},
    {"15", &Mp3Format::ShortBlocks},
    {"16", &Mp3Format::IsoCompliance},
    {"17", &Mp3Format::EnforceMinBitrate},
    {"18", &Mp3Format::StereoMode},
    {"19", &Mp3Format::MaxVbrBitrate},
    {"20", &Mp3Format::VbrMethod},
    {"21", &Mp3Format::VbrQuality},
    {"22", &Mp3Format::WriteVbrHeader},
};

/// Sets a property from the text of its key. Throws on a text that can't be converted, "" included.
void setFromText(Mp3Format& format, const Mp3Property& property, const QString& text);

/// The text under which a property is stored: plain decimal, or "True" and "False".
QString textOf(const Mp3Format& format, const Mp3Property& property);
