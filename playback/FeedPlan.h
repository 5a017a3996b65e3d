// Rule: the next array of a counted stretch.
#pragma once

#include <cstdint>

inline constexpr std::int32_t partBlock = 100000;    ///< samples of an array of a part

/// Samples to feed next. 0 once all are fed: the player's own event then ends the play.
inline std::int32_t nextBlock(std::int32_t fed, std::int32_t length)
{
    return std::int64_t{fed} + partBlock <= length ? partBlock : length - fed;
}
