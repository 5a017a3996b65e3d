// The small widgets of the windows: labels that shorten their text, picture buttons, spin arrows, cards.
#pragma once

#include "core/Numbers.h"

#include <QAbstractButton>
#include <QFrame>
#include <QLabel>
#include <QToolButton>

#include <functional>

/// A one-line label. A text that doesn't fit is shortened, and stands whole in the tool tip.
class Label : public QLabel {
    Q_OBJECT

public:
    Label(QWidget* parent, const QString& name, QRectF placePx,
          Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);

    Qt::TextElideMode elideMode = Qt::ElideRight;
    int smallerPx = 0;    ///< font size to fall back to before the text is shortened
    std::function<void()> onClick;
    bool isShortened() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;
};

/// A button that is a drawing. Takes no focus by the mouse, so that the waveform keeps the arrow keys.
class PictureButton : public QAbstractButton {
    Q_OBJECT

public:
    enum class Frame { None, Flat, Card, Tab };

    PictureButton(QWidget* parent, const QString& name, QRectF placePx, const QString& picture, int picturePx,
                  Frame frame = Frame::Flat);

    QString picture() const { return picture_; }
    void setPicture(const QString& name);
    Twips Top() const { return top_; }
    void setTop(Twips top);
    /// Drawn as the chosen one of several: a tool, a tab.
    void setChosen(bool isChosen);
    bool isChosen() const { return isChosen_; }
    void setTip(const QString& text);    ///< tool tip, and the name that a screen reader says
    std::function<void()> onClick;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void paintFrame(QPainter& painter) const;

    QString picture_;
    int picturePx_;
    Frame frame_;
    bool isChosen_ = false;
    Twips top_;
};

/// Two arrows: up is later, down is earlier. They repeat while they are held.
class UpDown : public QWidget {
    Q_OBJECT

public:
    UpDown(QWidget* parent, const QString& name, QRectF placePx);

    std::function<void()> onUpClick, onDownClick;
    void setTip(const QString& text);
    QToolButton up, down;

private:
    void prepare(QToolButton& arrow, const QString& part, const QString& picture);
};

/// A white panel with a hairline around it.
class Card : public QFrame {
    Q_OBJECT

public:
    Card(QWidget* parent, const QString& name, QRectF placePx, bool isSquareAtTop = false);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool isSquareAtTop_;
};

/// A line round a widget that shows where the keyboard goes: seen while `focused` has the focus. It lies
/// behind the widget, so nothing that is painted or scrolled there is covered.
class FocusRing : public QWidget {
    Q_OBJECT

public:
    FocusRing(const QWidget& around, QWidget& focused);
    bool eventFilter(QObject* focused, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Puts a widget at a place in logical pixels.
void put(QWidget& widget, const QString& name, QRectF placePx);
