#include "Views/Shared/DevicePixels.h"

#include <QGuiApplication>
#include <QScreen>

namespace tolvar {

namespace {

/// A screen in device pixels.
QRect pixelsOf(const QScreen& screen) {
    return {screen.geometry().topLeft(),
            (QSizeF(screen.geometry().size()) * screen.devicePixelRatio()).toSize()};
}

QRect scaled(const QRect& rect, QPoint corner, double factor) {
    return QRectF(QPointF(rect.topLeft() - corner) * factor + QPointF(corner),
                  QSizeF(rect.size()) * factor)
        .toAlignedRect();
}

} // namespace

QRect DevicePixels::toPoints(const QRect& pixels) {
    const QScreen* found = QGuiApplication::primaryScreen();
    for (const QScreen* screen : QGuiApplication::screens())
        if (pixelsOf(*screen).contains(pixels.center()))
            found = screen;
    return found ? scaled(pixels, found->geometry().topLeft(), 1 / found->devicePixelRatio())
                 : pixels;
}

QRect DevicePixels::fromPoints(const QRect& points) {
    const QScreen* screen = QGuiApplication::screenAt(points.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? scaled(points, screen->geometry().topLeft(), screen->devicePixelRatio())
                  : points;
}

} // namespace tolvar
