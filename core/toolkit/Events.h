// The one place where a procedure gives way to the events that wait. After it anything may have changed: keep
// samples and indexes across it, never pointers to rows, markers or items.
#pragma once

#include <QCoreApplication>

inline void giveWay()
{
    QCoreApplication::processEvents();
}
