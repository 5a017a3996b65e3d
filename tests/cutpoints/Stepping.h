// The spin arrows that move the start and the end of the selected part.
#pragma once

#include "cutpoints/Cutting.h"

inline constexpr bool earlier = false, later = true;

/// One of the eight arrows, by the control's number.
inline QToolButton& arrow(CutterSelect& form, int control, bool isLater)
{
    UpDown& both = control == 1   ? form.UpDown1
                   : control == 2 ? form.UpDown2
                   : control == 3 ? form.UpDown3
                                  : form.UpDown4;
    return isLater ? both.up : both.down;
}

inline void step(CutterSelect& form, int control, bool isLater)
{
    press(arrow(form, control, isLater), QPoint(5, 5));
}
