// A picture surface: what is drawn on it stays, in a store at the screen's scale, until it is drawn over.
// Geometry is in twips and never read back from the widget.
#pragma once

#include "core/toolkit/Graphics.h"

#include <QImage>
#include <QWidget>

#include <span>
#include <vector>

class Surface : public QWidget {
    Q_OBJECT

public:
    Surface(QWidget* parent, const QString& name, QColor backColor);
    ~Surface() override;

    // ---- geometry
    Twips Left() const { return left_; }
    Twips Top() const { return top_; }
    Twips Width() const { return width_; }
    Twips Height() const { return height_; }
    void setLeft(Twips left);
    void setTop(Twips top);
    void setWidth(Twips width);
    void place(Twips left, Twips top, Twips width, Twips height);

    // ---- drawing
    /// Paints what `Cls` leaves behind, over the back colour; in logical pixels.
    std::function<void(QPainter& painter, QSizeF sizePx)> background;
    void Cls();
    void Print(Twips x, Twips y, const QString& text);
    /// Copies a rectangle of `source`, all in logical pixels.
    void BitBlt(int xPx, int yPx, int wPx, int hPx, const Surface& source, int sourceXPx = 0,
                int sourceYPx = 0);
    /// Vertical lines about a centre, one for each height: the line of `heights[i]` stands at x = `step` * i.
    void strokes(std::span<const double> heights, double step, double centre, QColor color);
    void Refresh() { update(); }

    // ---- the mouse and the keyboard
    MouseHandler onMouseDown, onMouseMove, onMouseUp;
    std::function<void()> onDblClick;
    std::function<void(int key)> onKeyDown;
    void setMousePointer(const QCursor& cursor);
    void setDefaultPointer();
    QPoint lastPressGlobal() const { return lastPress_; }    ///< for a menu opened by the press

    // ---- items, by GraphicItem alone
    void add(GraphicItem* item);
    void remove(GraphicItem* item);
    void raise(GraphicItem* item);
    using QWidget::raise;

    const QImage& store() const { return store_; }
    double scale() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void fitStore();
    void layWidget();
    void paintBackground();
    GraphicImage* imageAt(double x, double y) const;
    void showCursorFor(const GraphicImage* image);
    void releaseLost(double x, double y);
    bool isBesideDrag(const QMouseEvent& event) const;

    Twips left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    QColor backColor_;
    QImage store_;
    QImage cleared_;    // what `Cls` leaves behind where there is a background
    std::vector<GraphicItem*> items_;
    GraphicImage* grabber_ = nullptr;    // the image that was pressed, until the release
    Qt::MouseButton grabButton_ = Qt::NoButton;
    bool isPressed_ = false;    // between a press on this surface and its release
    QCursor pointer_;
    QPoint lastPress_;
};
