#include "support/SubClass.h"

#include "core/Declaration.h"
#include "core/Numbers.h"

#include <QWidget>

void SetWindowLimits(QWidget& window, float width, float height)
{
    MinTrackX = width;
    MinTrackY = height;
    const std::int32_t perPixel = toLong(twipsPerPixel);
    window.setFixedSize(toLong(MinTrackX) / perPixel, toLong(MinTrackY) / perPixel);
}
