// The fixed size of the main window.
#pragma once

class QWidget;

/// Fixes the client area at a size in twips: as pixels, each side rounded to whole twips first and then
/// divided.
void SetWindowLimits(QWidget& window, float width, float height);
