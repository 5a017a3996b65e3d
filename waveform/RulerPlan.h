// Rule: where the sections of the ruler and of the bottom bar stand, as raw copies of stamps in pixels.
#pragma once

#include "core/Numbers.h"

#include <vector>

inline constexpr int rulerSectionPx = 106;    ///< one label each
inline constexpr int barSectionPx = 44;

struct RulerSection {
    int xPx = 0;                ///< left pixel of the copy
    std::int32_t sample = 0;    ///< whose time is printed
};

/// One section every 106 pixels, and one beyond the right edge.
std::vector<RulerSection> planRuler(Twips width, std::int32_t totalSamples);

struct BarSection {
    int xPx = 0;
    int widthPx = 0;
};

/// Middle sections of the bottom bar; the last one only as wide as fits.
std::vector<BarSection> planBar(Twips width);
