// Rule: the table of cut points and the parts between them.
// Part code: 0 the first part, -1 the last, k the part that begins at cut k. List row = code + 1.
#pragma once

#include "core/Declaration.h"
#include "core/Numbers.h"

#include <optional>
#include <span>

inline constexpr std::int32_t lastPart = -1;

/// A stretch of the file in samples.
struct Stretch {
    std::int32_t start = 0;
    std::int32_t length = 0;

    bool operator==(const Stretch&) const = default;
};

/// Puts entries 1 to `count` in ascending order; entry 0 stays.
void sortCuts(std::span<std::int32_t> cuts, std::int32_t count);

/// Code of the part at x, with p(i) the single-precision position of cut i.
std::int32_t partAt(Twips x, std::span<const std::int32_t> cuts, std::int32_t count, Twips width,
                    std::int32_t totalSamples);

/// The stretch of a part by its code.
Stretch stretchOf(std::int32_t code, std::span<const std::int32_t> cuts, std::int32_t count,
                  std::int32_t totalSamples);

/// Takes `cut` out of the table: entries behind it move down by one. `index` is 1-based.
void removeCut(std::span<std::int32_t> cuts, std::int32_t& count, std::int32_t index);

/// Takes the record that begins at `sample` out of `parts` and leaves 0 to `count` - 1, where `count` is the
/// number of cuts before the removal. Record 0 goes when none begins there.
void removePart(std::vector<PartRecord>& parts, std::int32_t sample, std::int32_t count);

/// Where the highlight lies: the frame, and the surface inside it.
struct Highlight {
    Twips width = 0;
    Twips left = 0;
    Twips innerLeft = 0;
};

Highlight highlightOf(std::int32_t code, std::span<const std::int32_t> cuts, std::int32_t count, Twips width,
                      std::int32_t totalSamples);

/// Code of the part that an arrow key leads to from `code`.
std::int32_t partLeftOf(std::int32_t code, std::int32_t count);
std::int32_t partRightOf(std::int32_t code, std::int32_t count);
