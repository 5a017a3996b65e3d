// Rule: where the position handle goes as the pointer drags it.
#pragma once

#include "core/Numbers.h"

/// New left edge of a handle of `width` that stands at `left` on a surface of `surfaceWidth`, for a pointer
/// at `x` on the handle that was pressed at `pressedX`.
inline Twips draggedLeft(Twips x, std::int32_t pressedX, Twips left, Twips width, Twips surfaceWidth)
{
    if (x > static_cast<Twips>(pressedX)) {
        const auto centre = static_cast<Twips>(static_cast<double>(x) - pressedX + left + width / 2.0);
        return centre > surfaceWidth ? surfaceWidth - width / 2 : x - static_cast<Twips>(pressedX) + left;
    }
    if (x < static_cast<Twips>(pressedX)) {
        // Kept: to the left the press offset is not subtracted, so the handle jumps.
        const auto edge = static_cast<Twips>(static_cast<double>(left) + x);
        return edge < -(width / 2) ? -(width / 2) : left + x;
    }
    return left;
}
