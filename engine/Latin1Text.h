// Text for fields that hold Latin-1 only.
#pragma once

#include <QByteArray>
#include <QString>

/// Each character outside Latin-1 becomes the plain letters closest to it, or "?" where there are none.
QByteArray latin1Text(const QString& text);
