// What each MP3 preset sets: a plain table, so that presets work without the encoder library.
#pragma once

#include "core/AudioEngine.h"

struct Mp3Preset {
    const char* name;              ///< as the command line has it
    std::int32_t rate;             ///< Hz
    std::int32_t channels;         ///< 1 or 2
    std::int32_t vbrMethod;        ///< -1 constant bitrate, 3 MTRH, 4 ABR
    std::int16_t abrBitrate;       ///< kbit/s; 0: kept
    std::int16_t vbrQuality;       ///< 0 best; -1: kept
    std::int32_t bitrate;          ///< kbit/s; 0: kept
    std::int32_t lowpass;          ///< Hz
    std::int32_t maxVbrBitrate;    ///< kbit/s
};

/// Preset 1 (Phone) to 11 (R3Mix); null for other numbers.
const Mp3Preset* findPreset(std::int32_t number);

/// Alt-preset 1 (Fast Standard) to 5 (Insane); null for other numbers.
const Mp3Preset* findAltPreset(std::int32_t number);

/// A preset of either kind by the name of the command line; null when there is none.
const Mp3Preset* findPresetByName(const QString& name);

/// Sets what the preset says. What it keeps stays as it is, every other property gets its default.
void applyPreset(Mp3Format& format, const Mp3Preset& preset);
