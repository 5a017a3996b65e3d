#include "core/toolkit/Pictures.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <map>

// The drawings lie in a static library, which hands them over only when asked.
void loadDrawings()
{
    Q_INIT_RESOURCE(quillon);
}

namespace {

QPixmap render(const QString& file, QSize sizePx, double dpr)
{
    loadDrawings();
    QPixmap picture(sizePx * dpr);
    picture.fill(Qt::transparent);
    QSvgRenderer renderer(file);
    QPainter painter(&picture);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, QRectF(QPointF(0, 0), picture.size()));
    painter.end();
    picture.setDevicePixelRatio(dpr);
    return picture;
}

QPixmap faint(const QPixmap& picture)
{
    QPixmap pale(picture.size());
    pale.setDevicePixelRatio(picture.devicePixelRatio());
    pale.fill(Qt::transparent);
    QPainter painter(&pale);
    painter.setOpacity(0.32);
    painter.drawPixmap(0, 0, picture);
    return pale;
}

// An icon file given to QIcon would need a plugin, and fail without a word where it is missing.
class DrawingEngine : public QIconEngine {
public:
    explicit DrawingEngine(const QString& name) : name_(name) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->drawPixmap(rect, ::pixmap(name_, rect.size(), painter->device()->devicePixelRatioF(),
                                           mode != QIcon::Disabled));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale) override
    {
        return ::pixmap(name_, size / scale, scale, mode != QIcon::Disabled);
    }
    QIconEngine* clone() const override { return new DrawingEngine(name_); }

private:
    QString name_;
};

}

QPixmap pixmap(const QString& name, QSize sizePx, double dpr, bool isEnabled)
{
    const QString key = QStringLiteral("%1/%2x%3@%4/%5")
                            .arg(name)
                            .arg(sizePx.width())
                            .arg(sizePx.height())
                            .arg(dpr)
                            .arg(isEnabled);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    picture = render(QStringLiteral(":/quillon/icons/%1.svg").arg(name), sizePx, dpr);
    if (!isEnabled) picture = faint(picture);
    QPixmapCache::insert(key, picture);
    return picture;
}

QIcon icon(const QString& name)
{
    return QIcon(new DrawingEngine(name));
}

namespace {

QCursor makeCursor(const QString& name, double dpr)
{
    const QPixmap picture =
        render(QStringLiteral(":/quillon/cursors/%1.svg").arg(name.toLower()), QSize(24, 24), dpr);
    if (name == QLatin1String("SELECTION")) return QCursor(picture, 10, 2);    // tip of the finger
    if (name == QLatin1String("CURSEUR")) return QCursor(picture, 11, 11);
    return QCursor(picture, 12, 2);    // tip of the blades
}

}

QCursor customCursor(const QString& name, double dpr)
{
    static std::map<std::pair<QString, double>, QCursor> made;    // asked for at every move of the mouse
    const auto known = made.find({name, dpr});
    return known != made.end() ? known->second : made[{name, dpr}] = makeCursor(name, dpr);
}
