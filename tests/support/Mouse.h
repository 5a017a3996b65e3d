// The mouse as a hand moves it: a press, moves with the button held, a release; presses on the tool bar; and
// the window that takes the keys.
#pragma once

#include "core/toolkit/Menus.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

/// One mouse event at a place of a widget, in logical pixels. `held` are the buttons down after it.
inline void sendMouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button,
                      Qt::MouseButtons held)
{
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

inline void pressAt(QWidget& widget, QPointF at, Qt::MouseButton button = Qt::LeftButton)
{
    sendMouse(widget, QEvent::MouseButtonPress, at, button, button);
}

inline void moveTo(QWidget& widget, QPointF at, Qt::MouseButtons held = Qt::LeftButton)
{
    sendMouse(widget, QEvent::MouseMove, at, Qt::NoButton, held);
}

inline void releaseAt(QWidget& widget, QPointF at, Qt::MouseButton button = Qt::LeftButton)
{
    sendMouse(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}

/// Presses at `from`, moves to `to` in one step with the button held, and releases there.
inline void drag(QWidget& widget, QPointF from, QPointF to, Qt::MouseButton button = Qt::LeftButton)
{
    pressAt(widget, from, button);
    moveTo(widget, to, button);
    releaseAt(widget, to, button);
}

/// A click on a button of the tool bar; a disabled one takes it and does nothing.
inline void pressButton(Toolbar& bar, int index)
{
    QWidget* button = bar.widgetForAction(&bar.Buttons(index));
    QTest::mouseClick(button, Qt::LeftButton, {}, button->rect().center());
}

/// Makes the window the active one; a progress dialog that has gone may have been it.
inline void activate(QWidget& window)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    window.activateWindow();
    if (!QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }))
        qFatal("the window stays inactive");
}
