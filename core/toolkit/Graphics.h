// Lines and images that lie on a surface. They are no widgets: their places are single-precision twips that
// rules read back, and they lie under the surfaces that their surface holds.
#pragma once

#include "core/Numbers.h"

#include <QColor>
#include <QCursor>
#include <QObject>
#include <QString>

#include <functional>

class QPainter;
class Surface;

/// Buttons as handlers are told of them.
inline constexpr int leftButton = 1;
inline constexpr int rightButton = 2;

using MouseHandler = std::function<void(int button, int shift, Twips x, Twips y)>;

class GraphicItem : public QObject {
    Q_OBJECT

public:
    GraphicItem(Surface& surface, const QString& name);
    ~GraphicItem() override;

    bool Visible() const { return visible_; }
    void setVisible(bool visible);
    void bringToFront();

    virtual void paint(QPainter& painter, double dpr) const = 0;
    virtual QRectF boundsPx() const = 0;    ///< logical pixels

protected:
    void update() const;

    Surface& surface_;

private:
    bool visible_ = true;
};

class GraphicLine : public GraphicItem {
    Q_OBJECT

public:
    GraphicLine(Surface& surface, const QString& name, QColor color, bool isDotted = false);

    Twips X1() const { return x1_; }
    Twips X2() const { return x2_; }
    Twips Y1() const { return y1_; }
    Twips Y2() const { return y2_; }
    void place(Twips x1, Twips y1, Twips x2, Twips y2);
    void setX1(Twips x) { place(x, y1_, x2_, y2_); }
    void setX2(Twips x) { place(x1_, y1_, x, y2_); }
    void setX(Twips x) { place(x, y1_, x, y2_); }    ///< both ends
    void setY(Twips y) { place(x1_, y, x2_, y); }    ///< both ends

    void paint(QPainter& painter, double dpr) const override;
    QRectF boundsPx() const override;

private:
    Twips x1_ = 0, y1_ = 0, x2_ = 0, y2_ = 0;
    QColor color_;
    bool isDotted_;
};

class GraphicImage : public GraphicItem {
    Q_OBJECT

public:
    GraphicImage(Surface& surface, const QString& name, const QString& picture, Twips left, Twips top,
                 Twips width, Twips height);

    Twips Left() const { return left_; }
    Twips Top() const { return top_; }
    Twips Width() const { return width_; }
    Twips Height() const { return height_; }
    void setLeft(Twips left);
    void setTop(Twips top);

    QString Tag;
    QString toolTip;
    QCursor cursor;    ///< over the image

    MouseHandler onMouseDown, onMouseMove, onMouseUp;    ///< x and y from the image's own corner

    bool contains(double x, double y) const;    ///< twips on the surface

    void paint(QPainter& painter, double dpr) const override;
    QRectF boundsPx() const override;

private:
    Twips left_, top_, width_, height_;
    QString picture_;
};
