#pragma once

#include <QImage>
#include <QPainter>

#include <functional>

namespace tolvar::test {

/// An empty picture of so many points, with `scale` pixels to a point.
inline QImage emptyPicture(const QSize& points, qreal scale) {
    QImage picture(QSizeF(QSizeF(points) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    return picture;
}

/// What a function paints into an empty picture.
inline QImage painted(const QSize& points, qreal scale,
                      const std::function<void(QPainter&)>& paint) {
    QImage picture = emptyPicture(points, scale);
    QPainter painter(&picture);
    paint(painter);
    painter.end();
    return picture;
}

/// How much ink lies in a rectangle of pixels, in fully covered pixels.
inline double inkIn(const QImage& picture, const QRect& pixels) {
    double ink = 0;
    const QRect inside = pixels.intersected(picture.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            ink += qAlpha(picture.pixel(x, y)) / 255.0;
    return ink;
}

inline double inkIn(const QImage& picture) {
    return inkIn(picture, picture.rect());
}

/// The share of the inked pixels that are covered completely or almost so.
inline double crispness(const QImage& picture) {
    int inked = 0;
    int full = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const int alpha = qAlpha(picture.pixel(x, y));
            inked += alpha > 0 ? 1 : 0;
            full += alpha >= 250 ? 1 : 0;
        }
    return inked > 0 ? double(full) / inked : 0;
}

} // namespace tolvar::test
