#include "core/toolkit/Surface.h"

#include <QPainter>
#include <QPaintEvent>

#include <algorithm>
#include <cmath>

namespace {

int devicePixel(double px, double dpr)
{
    return static_cast<int>(std::floor(px * dpr));
}

}

Surface::Surface(QWidget* parent, const QString& name, QColor backColor)
    : QWidget(parent), backColor_(backColor)
{
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
}

Surface::~Surface()
{
    while (!items_.empty()) delete items_.back();
}

double Surface::scale() const
{
    return devicePixelRatioF();
}

void Surface::place(Twips left, Twips top, Twips width, Twips height)
{
    left_ = left, top_ = top, width_ = width, height_ = height;
    layWidget();
    fitStore();
}

void Surface::setLeft(Twips left)
{
    left_ = left;
    layWidget();
}

void Surface::setTop(Twips top)
{
    top_ = top;
    layWidget();
}

void Surface::setWidth(Twips width)
{
    width_ = width;
    layWidget();
    fitStore();
}

void Surface::layWidget()
{
    const auto px = [](Twips twips) { return static_cast<int>(std::lround(twips / twipsPerPixel)); };
    setGeometry(px(left_), px(top_), std::max(0, px(width_)), std::max(0, px(height_)));
}

// Keeps what is drawn where the size changes, and makes room for one column more than the width, so that a
// copy from a stamp never ends a device pixel short at a broken scale.
void Surface::fitStore()
{
    const double dpr = scale();
    const QSize size(devicePixel(std::max(0.0f, width_) / twipsPerPixel, dpr) + 1,
                     devicePixel(std::max(0.0f, height_) / twipsPerPixel, dpr) + 1);
    if (size == store_.size()) return;
    QImage fresh(size, QImage::Format_RGB32);
    fresh.fill(backColor_);
    if (!store_.isNull()) {
        const auto bytes = static_cast<std::size_t>(std::min(size.width(), store_.width())) * 4;
        for (int y = 0; y < std::min(size.height(), store_.height()); ++y)
            std::copy_n(store_.constScanLine(y), bytes, fresh.scanLine(y));
    }
    store_ = std::move(fresh);
    update();
}

// A background is painted once for each size; the ruler's stamp is cleared hundreds of times in one redraw.
void Surface::Cls()
{
    fitStore();
    if (!background) {
        store_.fill(backColor_);
    } else {
        if (cleared_.size() != store_.size()) paintBackground();
        std::copy_n(cleared_.constBits(), cleared_.sizeInBytes(), store_.bits());
    }
    update();
}

void Surface::paintBackground()
{
    cleared_ = QImage(store_.size(), QImage::Format_RGB32);
    cleared_.fill(backColor_);
    QPainter painter(&cleared_);
    painter.scale(scale(), scale());
    background(painter, QSizeF(store_.size()) / scale());
}

void Surface::Print(Twips x, Twips y, const QString& text)
{
    QPainter painter(&store_);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.scale(scale(), scale());
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QPointF(x / twipsPerPixel, y / twipsPerPixel + QFontMetricsF(font()).ascent()), text);
    update();
}

void Surface::BitBlt(int xPx, int yPx, int wPx, int hPx, const Surface& source, int sourceXPx, int sourceYPx)
{
    const double dpr = scale();
    // The store of a stamp is a device pixel larger than the stamp: that one is only for the rounding of
    // whole copies.
    wPx = std::min(wPx, static_cast<int>(source.width_ / twipsPerPixel) - sourceXPx);
    hPx = std::min(hPx, static_cast<int>(source.height_ / twipsPerPixel) - sourceYPx);
    if (wPx <= 0 || hPx <= 0) return;
    const int fromX = devicePixel(sourceXPx, dpr), fromY = devicePixel(sourceYPx, dpr);
    const QRect wanted(QPoint(devicePixel(xPx, dpr), devicePixel(yPx, dpr)),
                       QPoint(devicePixel(xPx + wPx, dpr) - 1, devicePixel(yPx + hPx, dpr) - 1));
    QRect target = wanted & store_.rect();
    target.setRight(std::min(target.right(), wanted.left() + source.store_.width() - fromX - 1));
    target.setBottom(std::min(target.bottom(), wanted.top() + source.store_.height() - fromY - 1));
    if (target.isEmpty()) return;

    const auto bytes = static_cast<std::size_t>(target.width()) * 4;
    const int columnIn = fromX + target.left() - wanted.left();
    for (int y = target.top(); y <= target.bottom(); ++y)
        std::copy_n(source.store_.constScanLine(fromY + y - wanted.top()) + columnIn * 4, bytes,
                    store_.scanLine(y) + target.left() * 4);
    update();
}

// All lines have one colour, so of those that fall on one column only the tallest counts. The table of
// columns is filled row by row, which is many times quicker than line after line, and gives the same pixels.
void Surface::strokes(std::span<const double> heights, double step, double centre, QColor color)
{
    const double dpr = scale();
    const int thick = std::max(1, static_cast<int>(std::lround(dpr)));
    const int width = store_.width(), height = store_.height();
    std::vector<int> top(static_cast<std::size_t>(width), height),
        bottom(static_cast<std::size_t>(width), -1);
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const int x = devicePixel(step * static_cast<double>(i) / twipsPerPixel, dpr);
        const int from = std::max(0, devicePixel((centre - heights[i]) / twipsPerPixel, dpr));
        const int to = std::min(height - 1, devicePixel((centre + heights[i]) / twipsPerPixel, dpr));
        for (int column = std::max(x, 0); column < std::min(x + thick, width); ++column) {
            const auto c = static_cast<std::size_t>(column);
            top[c] = std::min(top[c], from);
            bottom[c] = std::max(bottom[c], to);
        }
    }
    const QRgb pixel = color.rgb();
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(store_.scanLine(y));
        const int* t = top.data();
        const int* b = bottom.data();
        for (int x = 0; x < width; ++x) row[x] = (y >= t[x]) & (y <= b[x]) ? pixel : row[x];
    }
    update();
}

void Surface::add(GraphicItem* item)
{
    items_.push_back(item);
}

void Surface::remove(GraphicItem* item)
{
    std::erase(items_, item);
    if (grabber_ == item) grabber_ = nullptr;
    update(item->GraphicItem::Visible() ? QRect(rect()) : QRect());
}

void Surface::raise(GraphicItem* item)
{
    std::erase(items_, item);
    items_.push_back(item);
}

// Lines first, images above them, each in their own order.
void Surface::paintEvent(QPaintEvent* event)
{
    const double dpr = scale();
    QPainter painter(this);
    const QRect exposed = event->rect();
    const QRectF source(exposed.x() * dpr, exposed.y() * dpr, exposed.width() * dpr, exposed.height() * dpr);
    painter.drawImage(QRectF(exposed), store_, source);

    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.scale(1 / dpr, 1 / dpr);
    const auto paintAll = [&](auto isMine) {
        for (const GraphicItem* item : items_)
            if (isMine(item) && item->Visible() &&
                item->boundsPx().intersects(QRectF(exposed).adjusted(-1, -1, 1, 1)))
                item->paint(painter, dpr);
    };
    paintAll([](const GraphicItem* item) { return qobject_cast<const GraphicLine*>(item) != nullptr; });
    paintAll([](const GraphicItem* item) { return qobject_cast<const GraphicImage*>(item) != nullptr; });
}
