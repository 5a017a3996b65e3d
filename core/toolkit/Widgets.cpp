#include "core/toolkit/Widgets.h"

#include "core/toolkit/Look.h"
#include "core/toolkit/Pictures.h"
#include "core/toolkit/Wall.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

void put(QWidget& widget, const QString& name, QRectF placePx)
{
    widget.setObjectName(name);
    widget.setGeometry(placePx.toRect());
}

Label::Label(QWidget* parent, const QString& name, QRectF placePx, Qt::Alignment alignment) : QLabel(parent)
{
    put(*this, name, placePx);
    setAlignment(alignment);
    setTextFormat(Qt::PlainText);
}

bool Label::isShortened() const
{
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

void Label::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole()));
    QFont drawn = font();
    if (smallerPx && isShortened()) drawn.setPixelSize(smallerPx);
    painter.setFont(drawn);
    painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text(), elideMode, contentsRect().width()));
}

void Label::mousePressEvent(QMouseEvent* event)
{
    onClick ? event->accept() : event->ignore();
}

void Label::mouseReleaseEvent(QMouseEvent* event)
{
    if (onClick && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        onClick();
}

bool Label::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && isShortened()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }
    return QLabel::event(event);
}

PictureButton::PictureButton(QWidget* parent, const QString& name, QRectF placePx, const QString& picture,
                             int picturePx, Frame frame)
    : QAbstractButton(parent), picture_(picture), picturePx_(picturePx), frame_(frame),
      top_(static_cast<Twips>(placePx.top() * twipsPerPixel))
{
    put(*this, name, placePx);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    connect(this, &QAbstractButton::clicked, this, guarded([this](bool) {
                if (onClick) onClick();
            }));
}

void PictureButton::setPicture(const QString& name)
{
    picture_ = name;
    update();
}

void PictureButton::setTop(Twips top)
{
    top_ = top;
    move(x(), static_cast<int>(top / twipsPerPixel));
}

void PictureButton::setChosen(bool isChosen)
{
    isChosen_ = isChosen;
    update();
}

void PictureButton::setTip(const QString& text)
{
    setToolTip(text);
    setAccessibleName(text);
}

// A double click is one click here: on a toggle the second would undo the first.
void PictureButton::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
}

void PictureButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFrame(painter);
    if (picture_.isEmpty()) return;
    const QPixmap drawing = pixmap(picture_, QSize(picturePx_, picturePx_), devicePixelRatioF(), isEnabled());
    const int x = frame_ == Frame::Tab ? 10 : (width() - picturePx_) / 2;
    painter.drawPixmap(x, (height() - picturePx_) / 2 + (isDown() ? 1 : 0), drawing);
}

void PictureButton::paintFrame(QPainter& painter) const
{
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool isHot = isEnabled() && (underMouse() || isDown());
    switch (frame_) {
    case Frame::None:
        break;
    case Frame::Flat:
        if (isChosen_ || isHot) {
            painter.setPen(isChosen_ ? look::fieldBorder : look::hairline);
            painter.setBrush(isChosen_ || isDown() ? look::card : look::hover);
            painter.drawRoundedRect(box, 5, 5);
        }
        break;
    case Frame::Card:
        painter.setPen(isHot ? look::fieldBorder : look::hairlineStrong);
        painter.setBrush(isDown() ? look::hover : look::card);
        painter.drawRoundedRect(box, 6, 6);
        break;
    case Frame::Tab: {
        QPainterPath path;
        path.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, 8), 7, 7);
        painter.setPen(look::hairlineStrong);
        painter.setBrush(isChosen_ ? look::card : isHot ? look::hover : look::inactiveTab);
        painter.drawPath(path);
        if (isChosen_) painter.fillRect(QRectF(9, 0, width() - 18, 2.5), look::accent);
        break;
    }
    }
    if (hasFocus()) {
        painter.setPen(QPen(look::accent, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(0.75, 0.75, -0.75, -0.75), 5, 5);
    }
}

UpDown::UpDown(QWidget* parent, const QString& name, QRectF placePx) : QWidget(parent), up(this), down(this)
{
    put(*this, name, placePx);
    const int half = height() / 2;
    up.setGeometry(0, 0, width(), half);
    down.setGeometry(0, half, width(), height() - half);
    prepare(up, QStringLiteral("up"), QStringLiteral("spin-up"));
    prepare(down, QStringLiteral("down"), QStringLiteral("spin-down"));
    connect(&up, &QToolButton::clicked, this, guarded([this](bool) {
        if (onUpClick) onUpClick();
    }));
    connect(&down, &QToolButton::clicked, this, guarded([this](bool) {
        if (onDownClick) onDownClick();
    }));
}

void UpDown::prepare(QToolButton& arrow, const QString& part, const QString& picture)
{
    arrow.setObjectName(objectName() + QLatin1Char('.') + part);
    arrow.setProperty("spin", part);
    arrow.setIcon(icon(picture));
    arrow.setIconSize(QSize(8, 8));
    arrow.setAutoRepeat(true);
    arrow.setAutoRepeatDelay(400);
    arrow.setAutoRepeatInterval(60);
    arrow.setFocusPolicy(Qt::TabFocus);
}

void UpDown::setTip(const QString& text)
{
    up.setToolTip(text);
    down.setToolTip(text);
    up.setAccessibleName(text + QStringLiteral(" +"));
    down.setAccessibleName(text + QStringLiteral(" -"));
}

Card::Card(QWidget* parent, const QString& name, QRectF placePx, bool isSquareAtTop)
    : QFrame(parent), isSquareAtTop_(isSquareAtTop)
{
    put(*this, name, placePx);
}

void Card::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(look::hairlineStrong);
    painter.setBrush(look::card);
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (!isSquareAtTop_) {
        painter.drawRoundedRect(box, 7, 7);
        return;
    }
    QPainterPath path;
    path.addRoundedRect(box, 7, 7);
    QPainterPath top;
    top.addRect(QRectF(box.left(), box.top(), box.width(), 10));
    painter.drawPath(path.united(top));
}

FocusRing::FocusRing(const QWidget& around, QWidget& focused) : QWidget(around.parentWidget())
{
    constexpr int reach = 1;
    setGeometry(around.geometry().adjusted(-reach, -reach, reach, reach));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    lower();
    focused.installEventFilter(this);
}

bool FocusRing::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) show();
    if (event->type() == QEvent::FocusOut) hide();
    return false;
}

void FocusRing::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(look::accent);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
}
