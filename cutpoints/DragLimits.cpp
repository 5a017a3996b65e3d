#include "cutpoints/DragLimits.h"

DragLimits dragLimits(std::span<const std::int32_t> cuts, std::int32_t count, std::int32_t index,
                      std::int32_t totalSamples, std::int32_t rate)
{
    const std::int64_t margin = 50 * std::int64_t{toLong(rate / 100.0)};
    const auto i = static_cast<std::size_t>(index);
    return {index == 1 ? margin : cuts[i - 1] + margin,
            (index == count ? totalSamples : cuts[i + 1]) - margin};
}

std::int32_t heldWithin(Twips x, Twips low, Twips high)
{
    if (high < x) return toLong(high);
    return low <= x ? toLong(x) : toLong(low);
}
