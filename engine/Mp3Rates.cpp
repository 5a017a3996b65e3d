#include "engine/Mp3Rates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <span>

std::int32_t nearestMp3Rate(double rate)
{
    static constexpr std::array rates = {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000};
    return *std::min_element(rates.begin(), rates.end(),
                             [&](int a, int b) { return std::abs(a - rate) < std::abs(b - rate); });
}

std::int32_t nearestMp3Bitrate(std::int32_t rate, std::int32_t kbit)
{
    // Layer III of MPEG 1, of MPEG 2, and what LAME makes of the half rates below it.
    static constexpr int high[] = {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
    static constexpr int low[] = {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
    static constexpr int lowest[] = {8, 16, 24, 32, 40, 48, 56, 64};
    const std::span<const int> all = rate >= 32000   ? std::span<const int>(high)
                                     : rate >= 16000 ? std::span<const int>(low)
                                                     : std::span<const int>(lowest);
    const int wanted = std::clamp(kbit, 8, 320);
    return *std::ranges::min_element(all, {}, [&](int each) { return std::abs(each - wanted); });
}
