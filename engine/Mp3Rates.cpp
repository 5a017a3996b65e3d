#include "engine/Mp3Rates.h"

#include <algorithm>
#include <array>
#include <cmath>

std::int32_t nearestMp3Rate(double rate)
{
    static constexpr std::array rates = {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000};
    return *std::min_element(rates.begin(), rates.end(),
                             [&](int a, int b) { return std::abs(a - rate) < std::abs(b - rate); });
}
