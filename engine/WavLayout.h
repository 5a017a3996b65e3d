// Where the sound lies in a WAV or RF64 file and in what form. What the header says of lengths is believed
// only as far as the file goes.
#pragma once

#include "engine/Decoder.h"
#include "engine/SourceFile.h"

#include <optional>

struct WavLayout {
    enum class Sample { unsigned8, signed16, signed24, signed32, float32, float64 };

    Sample sample = Sample::signed16;
    int rate = 0;                     ///< Hz
    int channels = 0;                 ///< as many as the file has
    int bits = 0;                     ///< of one sample in the file, as it says itself
    int frameBytes = 0;               ///< one sample of every channel
    std::uint32_t channelMask = 0;    ///< speaker of each channel, 0 where it isn't told
    std::int64_t dataStart = 0;       ///< bytes from the start of the file
    std::int64_t dataBytes = 0;

    std::int64_t frames() const { return dataBytes / frameBytes; }
};

/// Empty for everything but uncompressed WAV.
std::optional<WavLayout> findWavLayout(const SourceFile& file);
