#include "cutpoints/CutRules.h"

#include "core/WaveScale.h"

#include <algorithm>

void sortCuts(std::span<std::int32_t> cuts, std::int32_t count)
{
    if (count > 1) std::ranges::sort(cuts.subspan(1, static_cast<std::size_t>(count)));
}

std::int32_t partAt(Twips x, std::span<const std::int32_t> cuts, std::int32_t count, Twips width,
                    std::int32_t totalSamples)
{
    const auto p = [&](std::int32_t i) {
        return twipsOfSample(width, totalSamples, cuts[static_cast<std::size_t>(i)]);
    };
    if (p(1) > x) return 0;
    if (p(count) < x) return lastPart;
    for (std::int32_t i = 1; i < count; ++i)
        if (p(i + 1) > x && p(i) <= x) return i;
    return 0;    // Kept: an x exactly on the last cut is the first part
}

Stretch stretchOf(std::int32_t code, std::span<const std::int32_t> cuts, std::int32_t count,
                  std::int32_t totalSamples)
{
    const auto cut = [&](std::int32_t i) { return cuts[static_cast<std::size_t>(i)]; };
    if (count == 0) return {0, totalSamples};    // the whole file is the only part
    if (code == 0) return {0, cut(1)};
    if (code == lastPart) return {cut(count), totalSamples - cut(count)};
    return {cut(code), cut(code + 1) - cut(code)};
}

void removeCut(std::span<std::int32_t> cuts, std::int32_t& count, std::int32_t index)
{
    for (std::int32_t k = index + 1; k <= count; ++k)
        cuts[static_cast<std::size_t>(k - 1)] = cuts[static_cast<std::size_t>(k)];
    --count;
}

void removePart(std::vector<PartRecord>& parts, std::int32_t sample, std::int32_t count)
{
    const auto last = static_cast<std::size_t>(count);
    std::size_t j = 0;
    while (j <= last && parts.at(j).StartSample != sample) ++j;
    if (j > last) j = 0;    // Kept: where no record begins there, the first one goes
    for (std::size_t k = j; k < last; ++k) parts.at(k) = parts.at(k + 1);
    parts.resize(last);
}

Highlight highlightOf(std::int32_t code, std::span<const std::int32_t> cuts, std::int32_t count, Twips width,
                      std::int32_t totalSamples)
{
    const auto x = [&](std::int32_t i) {
        return xOfSample(width, totalSamples, cuts[static_cast<std::size_t>(i)]);
    };
    if (count == 0) return {width, 0, 0};
    if (code == 0) return {static_cast<Twips>(x(1)), 0, 0};
    const std::int32_t from = code == lastPart ? count : code;
    const double w = code == lastPart ? width - x(count) : x(code + 1) - x(code);
    return {static_cast<Twips>(w), static_cast<Twips>(x(from)), static_cast<Twips>(-x(from))};
}

std::int32_t partLeftOf(std::int32_t code, std::int32_t count)
{
    if (code == lastPart) return count - 1;
    return code == 0 ? lastPart : code - 1;
}

std::int32_t partRightOf(std::int32_t code, std::int32_t count)
{
    return code + 1 < count ? code + 1 : lastPart;
}
