// Rule: the text of the parts list.
#pragma once

#include "core/Declaration.h"

#include <span>

/// The cells of one row, left to right.
struct PartRow {
    QString name, start, end, duration, title, sampleStart;

    bool operator==(const PartRow&) const = default;
};

/// One row for each part; none while there is no cut.
std::vector<PartRow> partRows(std::span<const std::int32_t> cuts, std::int32_t count,
                              std::int32_t totalSamples, std::int32_t rate,
                              std::span<const PartRecord> parts);
