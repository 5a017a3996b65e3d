#include "core/toolkit/Graphics.h"

#include "core/toolkit/Pictures.h"
#include "core/toolkit/Surface.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

GraphicItem::GraphicItem(Surface& surface, const QString& name) : surface_(surface)
{
    setParent(&surface);
    setObjectName(name);
    surface_.add(this);
}

GraphicItem::~GraphicItem()
{
    surface_.remove(this);
}

void GraphicItem::setVisible(bool visible)
{
    if (visible == visible_) return;
    visible_ = true;
    update();
    visible_ = visible;
}

void GraphicItem::bringToFront()
{
    surface_.raise(this);
    update();
}

void GraphicItem::update() const
{
    if (visible_) surface_.update(boundsPx().toAlignedRect().adjusted(-1, -1, 1, 1));
}

GraphicLine::GraphicLine(Surface& surface, const QString& name, QColor color, bool isDotted)
    : GraphicItem(surface, name), color_(color), isDotted_(isDotted)
{}

void GraphicLine::place(Twips x1, Twips y1, Twips x2, Twips y2)
{
    if (x1 == x1_ && y1 == y1_ && x2 == x2_ && y2 == y2_) return;
    update();
    x1_ = x1, y1_ = y1, x2_ = x2, y2_ = y2;
    update();
}

QRectF GraphicLine::boundsPx() const
{
    const QPointF a(std::min(x1_, x2_) / twipsPerPixel, std::min(y1_, y2_) / twipsPerPixel);
    const QPointF b(std::max(x1_, x2_) / twipsPerPixel, std::max(y1_, y2_) / twipsPerPixel);
    return QRectF(a, b + QPointF(1, 1));
}

// Lines are filled in device pixels, so that they look alike at every scale. The painter works in these.
void GraphicLine::paint(QPainter& painter, double dpr) const
{
    const QRectF px = boundsPx();
    const int thick = std::max(1, static_cast<int>(std::lround(dpr)));
    const int x = static_cast<int>(std::floor(px.left() * dpr)),
              y = static_cast<int>(std::floor(px.top() * dpr));
    const int w = x1_ == x2_ ? thick : static_cast<int>(px.width() * dpr);
    const int h = y1_ == y2_ ? thick : static_cast<int>(px.height() * dpr);
    if (!isDotted_) {
        painter.fillRect(x, y, w, h, color_);
        return;
    }
    for (int dot = 0; dot < h; dot += 3 * thick) painter.fillRect(x, y + dot, w, thick, color_);
}

GraphicImage::GraphicImage(Surface& surface, const QString& name, const QString& picture, Twips left,
                           Twips top, Twips width, Twips height)
    : GraphicItem(surface, name), left_(left), top_(top), width_(width), height_(height), picture_(picture)
{}

void GraphicImage::setLeft(Twips left)
{
    if (left == left_) return;
    update();
    left_ = left;
    update();
}

void GraphicImage::setTop(Twips top)
{
    if (top == top_) return;
    update();
    top_ = top;
    update();
}

bool GraphicImage::contains(double x, double y) const
{
    return x >= left_ && x < left_ + width_ && y >= top_ && y < top_ + height_;
}

QRectF GraphicImage::boundsPx() const
{
    return {left_ / twipsPerPixel, top_ / twipsPerPixel, width_ / twipsPerPixel, height_ / twipsPerPixel};
}

void GraphicImage::paint(QPainter& painter, double dpr) const
{
    const QRectF px = boundsPx();
    QPixmap picture = pixmap(picture_, px.size().toSize(), dpr);
    picture.setDevicePixelRatio(1);    // the painter works in device pixels
    painter.drawPixmap(
        QPoint(static_cast<int>(std::floor(px.left() * dpr)), static_cast<int>(px.top() * dpr)), picture,
        QRect(QPoint(0, 0), picture.size()));
}
