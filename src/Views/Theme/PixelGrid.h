#pragma once

#include <QTransform>

#include <optional>

class QPainter;

namespace tolvar {

/// From a painter's coordinates to the pixels of its device, when it only moves them and enlarges
/// them by the device's own scale, as everything at rest is drawn. Nothing while a painter turns,
/// shears, shrinks or enlarges, as it does for what moves: pixels are then no help.
std::optional<QTransform> pixelTransform(const QPainter& painter);

/// Lets a painter draw in pixels of its device while it lives.
class PixelPainting {
public:
    /// `toPixels` is the painter's own pixelTransform().
    PixelPainting(QPainter& painter, const QTransform& toPixels);
    ~PixelPainting();
    Q_DISABLE_COPY_MOVE(PixelPainting)

private:
    QPainter& m_painter;
};

} // namespace tolvar
