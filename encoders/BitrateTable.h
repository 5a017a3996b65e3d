// Rule: the bitrates that the slider positions stand for, and the sampling rates that the lists offer.
#pragma once

#include <array>
#include <cstdint>

/// kbit/s of slider positions 0 to 14. Kept: there is no 40 and no 80.
inline constexpr std::array<std::int16_t, 15> bitrateTable = {8,   16,  24,  32,  48,  56,  64, 96,
                                                              112, 128, 160, 192, 224, 256, 320};

inline constexpr int lastBitratePosition = static_cast<int>(bitrateTable.size()) - 1;

/// Slider position of a bitrate in kbit/s; -1 when the table has none.
constexpr int positionOfBitrate(std::int32_t kbit)
{
    for (std::size_t i = 0; i < bitrateTable.size(); ++i)
        if (bitrateTable[i] == kbit) return static_cast<int>(i);
    return -1;
}

struct SamplingRate {
    const char* caption;
    std::int32_t hertz;
};

/// The rows of `cmbFrequency`. Kept: two have blanks at an end.
inline constexpr std::array<SamplingRate, 9> samplingRates = {{{"  8 000 Hz", 8000},
                                                               {"11 025 Hz", 11025},
                                                               {"12 000 Hz ", 12000},
                                                               {"16 000 Hz", 16000},
                                                               {"22 050 Hz", 22050},
                                                               {"24 000 Hz", 24000},
                                                               {"32 000 Hz", 32000},
                                                               {"44 100 Hz", 44100},
                                                               {"48 000 Hz", 48000}}};

/// Row of a rate in Hz; one past the last row when there is none.
constexpr int rowOfRate(std::int32_t hertz)
{
    int row = 0;
    while (row < static_cast<int>(samplingRates.size()) && samplingRates[row].hertz != hertz) ++row;
    return row;
}
