#include "Views/Theme/PixelGrid.h"

#include <QPainter>

#include <cmath>

namespace tolvar {

namespace {

bool isNear(qreal left, qreal right) {
    return std::abs(left - right) < 1e-4;
}

} // namespace

std::optional<QTransform> pixelTransform(const QPainter& painter) {
    const QTransform transform = painter.deviceTransform();
    const qreal scale = painter.device()->devicePixelRatio();
    if (transform.type() > QTransform::TxScale || !isNear(transform.m11(), scale) ||
        !isNear(transform.m22(), scale))
        return std::nullopt;
    return transform;
}

PixelPainting::PixelPainting(QPainter& painter, const QTransform& toPixels)
    : m_painter(painter) {
    painter.save();
    painter.setWorldTransform(toPixels.inverted() * painter.worldTransform());
}

PixelPainting::~PixelPainting() {
    m_painter.restore();
}

} // namespace tolvar
