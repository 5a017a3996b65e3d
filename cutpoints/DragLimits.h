// Rule: how far the handle of a cut can be dragged.
#pragma once

#include "core/Numbers.h"

#include <span>

struct DragLimits {
    std::int64_t low = 0;     ///< sample; beyond the range of positions near the end of the longest files
    std::int64_t high = 0;    ///< sample
};

/// Half a second to the ends of the file and to the neighbouring cuts. `index` is 1-based.
DragLimits dragLimits(std::span<const std::int32_t> cuts, std::int32_t count, std::int32_t index,
                      std::int32_t totalSamples, std::int32_t rate);

/// Where a handle pulled to x stands, in whole twips; `low` and `high` are the positions of the limits. Kept:
/// the upper limit is tested first, which decides where neighbours stand closer than a second. Close to an
/// end of the file a cut can so come to stand outside it.
std::int32_t heldWithin(Twips x, Twips low, Twips high);
