// What stands on a surface, read in logical pixels at any scale of the screen.
#pragma once

#include "core/toolkit/Surface.h"

#include <algorithm>
#include <cmath>

/// The device pixel that holds a logical one.
inline int device(double px, double dpr)
{
    return static_cast<int>(std::floor(px * dpr));
}

inline QColor pixel(const Surface& surface, double xPx, double yPx)
{
    return surface.store().pixelColor(device(xPx, surface.scale()), device(yPx, surface.scale()));
}

inline QImage part(const Surface& surface, int x, int y, int w, int h)
{
    const double dpr = surface.scale();
    const QPoint from(device(x, dpr), device(y, dpr));
    return surface.store().copy(QRect(from, QPoint(device(x + w, dpr) - 1, device(y + h, dpr) - 1)));
}

inline constexpr int barTop = 178, barBottom = 195;    ///< rows of the bar

/// A file whose samples are as many as the twips of the design width, so that the sample of a cut is its x.
inline constexpr std::int32_t twipLength = 10420;
