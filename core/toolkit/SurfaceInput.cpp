// What the mouse and the keyboard do to a surface: which of its images is hit or held, and which pointer
// shows.
#include "core/toolkit/Surface.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>

namespace {

int buttonOf(Qt::MouseButton button)
{
    return button == Qt::RightButton ? rightButton : button == Qt::MiddleButton ? 4 : leftButton;
}

int shiftOf(Qt::KeyboardModifiers keys)
{
    return (keys & Qt::ShiftModifier ? 1 : 0) | (keys & Qt::ControlModifier ? 2 : 0) |
           (keys & Qt::AltModifier ? 4 : 0);
}

const Surface* pressedLast = nullptr;    // for comparison alone

}

GraphicImage* Surface::imageAt(double x, double y) const
{
    for (auto i = items_.rbegin(); i != items_.rend(); ++i)
        if (auto* image = qobject_cast<GraphicImage*>(*i); image && image->Visible() && image->contains(x, y))
            return image;
    return nullptr;
}

void Surface::mousePressEvent(QMouseEvent* event)
{
    lastPress_ = event->globalPosition().toPoint();
    if (focusPolicy() & Qt::ClickFocus) setFocus(Qt::MouseFocusReason);
    if (isBesideDrag(*event)) return;
    pressedLast = this;
    // The last whole pixel reaches beyond a width that is not one.
    const double x = std::min<double>(event->position().x() * twipsPerPixel, width_);
    const double y = event->position().y() * twipsPerPixel;
    GraphicImage* image = imageAt(x, y);
    grabber_ = image;
    grabButton_ = event->button();
    isPressed_ = true;
    const int button = buttonOf(event->button()), shift = shiftOf(event->modifiers());
    if (!image) {
        if (onMouseDown) onMouseDown(button, shift, static_cast<Twips>(x), static_cast<Twips>(y));
    } else if (image->onMouseDown) {
        image->onMouseDown(button, shift, static_cast<Twips>(x - image->Left()),
                           static_cast<Twips>(y - image->Top()));
    }
}

void Surface::mouseMoveEvent(QMouseEvent* event)
{
    const double x = event->position().x() * twipsPerPixel, y = event->position().y() * twipsPerPixel;
    // A press that began elsewhere (on a handle that is hidden now) leaves this surface free to hit its own,
    // and so does one whose release went to a menu.
    if (event->buttons() == Qt::NoButton) releaseLost(x, y);
    GraphicImage* image = grabber_ ? grabber_ : isPressed_ ? nullptr : imageAt(x, y);
    const int button = event->buttons() & Qt::LeftButton    ? leftButton
                       : event->buttons() & Qt::RightButton ? rightButton
                                                            : 0;
    const int shift = shiftOf(event->modifiers());
    showCursorFor(image);
    if (!image) {
        if (onMouseMove) onMouseMove(button, shift, static_cast<Twips>(x), static_cast<Twips>(y));
    } else if (image->onMouseMove) {
        image->onMouseMove(button, shift, static_cast<Twips>(x - image->Left()),
                           static_cast<Twips>(y - image->Top()));
    }
}

// Another button, in the middle of a drag.
bool Surface::isBesideDrag(const QMouseEvent& event) const
{
    return grabber_ && event.buttons() != event.button();
}

// The release went to a dialog or a menu that came up meanwhile: what was dragged is let go here.
void Surface::releaseLost(double x, double y)
{
    isPressed_ = false;
    const GraphicImage* image = std::exchange(grabber_, nullptr);
    if (image && image->onMouseUp)
        image->onMouseUp(buttonOf(grabButton_), 0, static_cast<Twips>(x - image->Left()),
                         static_cast<Twips>(y - image->Top()));
}

void Surface::mouseReleaseEvent(QMouseEvent* event)
{
    if (grabber_ && event->button() != grabButton_) return;
    const double x = event->position().x() * twipsPerPixel, y = event->position().y() * twipsPerPixel;
    GraphicImage* image = std::exchange(grabber_, nullptr);
    isPressed_ = false;
    const int button = buttonOf(event->button()), shift = shiftOf(event->modifiers());
    if (!image) {
        if (onMouseUp) onMouseUp(button, shift, static_cast<Twips>(x), static_cast<Twips>(y));
    } else if (image->onMouseUp) {
        image->onMouseUp(button, shift, static_cast<Twips>(x - image->Left()),
                         static_cast<Twips>(y - image->Top()));
    }
}

// The toolkit's own answer would run the press handler a second time. A handle takes it as a press all the
// same; so does a surface that had the second press alone, since the first hid the one that lay over it.
void Surface::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (isBesideDrag(*event)) return;
    if (pressedLast != this ||
        imageAt(event->position().x() * twipsPerPixel, event->position().y() * twipsPerPixel))
        mousePressEvent(event);
    else if (onDblClick)
        onDblClick();
}

void Surface::keyPressEvent(QKeyEvent* event)
{
    if (onKeyDown && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right))
        onKeyDown(event->key());
    else
        QWidget::keyPressEvent(event);
}

bool Surface::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const GraphicImage* image = imageAt(help->pos().x() * twipsPerPixel, help->pos().y() * twipsPerPixel);
        QToolTip::showText(help->globalPos(), image ? image->toolTip : toolTip(), this);
        return true;
    }
    return QWidget::event(event);
}

void Surface::setMousePointer(const QCursor& cursor)
{
    // A surface without a pointer of its own shows that of the one below it.
    if (testAttribute(Qt::WA_SetCursor) && pointer_ == cursor && this->cursor() == cursor) return;
    pointer_ = cursor;
    setCursor(cursor);
}

void Surface::setDefaultPointer()
{
    setMousePointer(QCursor(Qt::ArrowCursor));
}

void Surface::showCursorFor(const GraphicImage* image)
{
    if (image)
        setCursor(image->cursor);
    else if (cursor() != pointer_)
        setCursor(pointer_);
}
