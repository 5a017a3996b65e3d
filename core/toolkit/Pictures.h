// The program's own drawings, rendered sharp at any scale and kept by name, size and scale.
#pragma once

#include <QCursor>
#include <QIcon>
#include <QPixmap>
#include <QString>

/// Makes the drawings known to the toolkit; the style sheet names some of them.
void loadDrawings();

/// A drawing of `resources/icons` at a size in logical pixels.
QPixmap pixmap(const QString& name, QSize sizePx, double dpr, bool isEnabled = true);

/// The same as an icon for menus, buttons and tool bars; disabled icons come out faint.
QIcon icon(const QString& name);

/// A cursor of `resources/cursors`: "SELECTION", "CURSEUR" or "CUTTERZ".
QCursor customCursor(const QString& name, double dpr);
