// The look of all windows: colours, fonts, one palette and one small style sheet. Nothing of the desktop's
// theme shows through, so a picture of a window is the same everywhere.
#pragma once

#include <QColor>
#include <QFont>

class QApplication;

namespace look {

inline const QColor window(0xF1, 0xF4, 0xFD), card(0xFF, 0xFF, 0xFF), hover(0xF3, 0xF6, 0xFD);
inline const QColor hairline(0xDD, 0xE4, 0xF4), hairlineStrong(0xD3, 0xDB, 0xEF),
    fieldBorder(0x84, 0x93, 0xB8);
inline const QColor text(0x1E, 0x27, 0x40), label(0x33, 0x41, 0x5F), muted(0x55, 0x60, 0x7E),
    disabled(0x8A, 0x94, 0xAE);
inline const QColor inactiveTab(0xE4, 0xEA, 0xF8), inactiveTabText(0x4A, 0x55, 0x73),
    accent(0x2F, 0x5F, 0xD0);
inline const QColor selectedRow(0xDC, 0xE7, 0xFF), selectedText(0x14, 0x20, 0x3F),
    scrollHandle(0x76, 0x87, 0xB5);

/// A font of the program's family, in pixels.
QFont font(int px, QFont::Weight weight = QFont::Normal);

}

void applyLook(QApplication& application);
