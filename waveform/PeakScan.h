// Rule: the peak table. One entry for each `ratio` samples, the absolute value of the one sample that stands
// there: not a maximum over the stretch.
#pragma once

#include "core/AudioEngine.h"

#include <span>

class PeakScan {
public:
    /// `totalSamples` of the whole file: the table gets about 8000 entries in stereo, 4000 in mono.
    explicit PeakScan(std::int32_t totalSamples);

    /// Samples a block and appends to `peaks`, which starts with a single entry that the first peak takes.
    /// Throws when there are so few samples that the ratio is 0.
    void add(std::span<std::int16_t> block, std::vector<std::int32_t>& peaks);

private:
    std::int32_t ratio_;            // elements of even index from one entry to the next
    std::int64_t untilNext_ = 0;    // even elements to pass before the next entry; runs on across blocks
    std::size_t next_ = 0;          // entries so far
};

/// Magnitude of a sample. -32768 becomes -32665 in place, since 16 bits have no +32768.
std::int32_t magnitude(std::int16_t& sample);

/// Progress of a scan in whole percent, never 0.
std::int16_t scanPercent(double done, std::int32_t totalSamples);
