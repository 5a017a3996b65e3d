#include "cutpoints/BoundaryMoves.h"

#include "core/Numbers.h"

#include <algorithm>

namespace {

// In 64 bits: a step from the last position is beyond the range of positions.
std::int64_t cut(const Boundaries& b, std::int32_t i)
{
    return b.cuts[static_cast<std::size_t>(i)];
}

std::int32_t position(std::int64_t sample)
{
    return toLong(static_cast<double>(sample));
}

}

std::int32_t earlierStart(const Boundaries& b, std::int32_t row, std::int32_t step)
{
    const std::int64_t limit = row > 2 ? cut(b, row - 2) + step : step;
    return position(std::max(cut(b, row - 1) - step, limit));
}

std::int32_t laterStart(const Boundaries& b, std::int32_t row, std::int32_t step)
{
    const std::int64_t limit = (row == b.count + 1 ? b.totalSamples : cut(b, row)) - step;
    return position(std::min(cut(b, row - 1) + step, limit));
}

std::int32_t earlierEnd(const Boundaries& b, std::int32_t row, std::int32_t step)
{
    const std::int64_t limit = row == 1 ? step : cut(b, row - 1) + step;
    return position(std::max(cut(b, row) - step, limit));
}

std::int32_t laterEnd(const Boundaries& b, std::int32_t row, std::int32_t step)
{
    // Kept: only the part before the last is held back; any other end can run past the next cut.
    const std::int64_t limit = row == b.count ? b.totalSamples - step : cut(b, row) + step;
    return position(std::min(cut(b, row) + step, limit));
}
