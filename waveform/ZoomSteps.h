// Rule: what a zoom command does to the level, the width and the scroll bar.
#pragma once

#include "core/Numbers.h"

inline constexpr Twips zoomStep = 30000;            ///< widening of each level, twips
inline constexpr std::int32_t lastZoomLevel = 8;    ///< a level without a width of its own
inline constexpr double scrollUnit = 300;           ///< twips of one unit of the scroll bar

/// Width at 1:1, from that of the viewport.
inline Twips baseWidth(Twips viewport)
{
    return viewport - 35;
}

/// Largest value of the scroll bar for a waveform of `width` in a viewport.
inline std::int16_t scrollMaximum(Twips width, Twips viewport)
{
    return toInteger((static_cast<double>(width) - viewport) / scrollUnit);
}

/// Left edge of the waveform at a value of the scroll bar.
inline Twips scrolledLeft(std::int32_t value)
{
    return value == 1 ? 0 : static_cast<Twips>(-(value * scrollUnit));
}
