#pragma once

#include "Platform/Interfaces/StatusItem.h"

#include <QRectF>

#include <functional>

class QColor;
class QPainter;

namespace tolvar {

/// How the status item looks, for those who show it and do not know how to draw it. Lengths are
/// points; `thickness` is that of the panel across.
struct StatusItemArt {
    /// The castle's width, and that of a label beside it.
    std::function<double(double thickness)> iconWidth;
    std::function<double(const QString& label, double thickness)> labelWidth;
    /// Where the castle stands in an item of this size.
    std::function<QRectF(const StatusItemContent& content, const QSizeF& size)> iconPlace;
    /// Draws castle and label into an item of this size, in one colour.
    std::function<void(QPainter& painter, const StatusItemContent& content, const QSizeF& size,
                       const QColor& ink)>
        paint;
    /// Draws the castle alone.
    std::function<void(QPainter& painter, const QRectF& box, const QColor& ink)> paintIcon;
};

} // namespace tolvar
