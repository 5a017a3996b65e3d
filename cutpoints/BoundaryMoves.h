// Rule: where a boundary of the part in list row r (from 1) goes by one step. A boundary stays at least one
// step away from its neighbours and from the ends of the file.
#pragma once

#include <cstdint>
#include <span>

struct Boundaries {
    std::span<const std::int32_t> cuts;    ///< entry 0 is 0
    std::int32_t count = 0;                ///< number of cuts
    std::int32_t totalSamples = 0;
};

std::int32_t earlierStart(const Boundaries& b, std::int32_t row, std::int32_t step);
std::int32_t laterStart(const Boundaries& b, std::int32_t row, std::int32_t step);
std::int32_t earlierEnd(const Boundaries& b, std::int32_t row, std::int32_t step);
std::int32_t laterEnd(const Boundaries& b, std::int32_t row, std::int32_t step);

using BoundaryRule = std::int32_t (*)(const Boundaries& b, std::int32_t row, std::int32_t step);
