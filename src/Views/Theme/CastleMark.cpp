#include "Views/Theme/CastleMark.h"

#include "Views/Theme/PixelGrid.h"

#include <QColor>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <vector>

namespace tolvar {

namespace {

/// The left half of a castle on a square grid; the right half is its mirror image.
struct CastleDrawing {
    qreal grid;
    /// From the gate's left foot round the left tower to the wall's middle.
    std::vector<QPointF> outline;
    /// Where the gate's sides end and its round arch begins.
    qreal archFoot;
    /// In the left tower.
    std::optional<QRectF> arrowSlit;
};

const CastleDrawing& fullDrawing() {
    static const CastleDrawing drawing{
        .grid = 40,
        .outline = {{15, 38},
                    {1, 38},
                    {1, 35},
                    {3, 35},
                    {3, 14},
                    {1, 12},
                    {1, 2},
                    {6, 2},
                    {6, 6},
                    {9, 6},
                    {9, 2},
                    {14, 2},
                    {14, 12},
                    {12, 14},
                    {12, 19},
                    {17, 19},
                    {17, 14},
                    {20, 14}},
        .archFoot = 29,
        .arrowSlit = QRectF(QPointF(6.6, 19), QPointF(8.4, 26)),
    };
    return drawing;
}

const CastleDrawing& smallDrawing() {
    static const CastleDrawing drawing{
        .grid = 15,
        .outline = {{6, 14},
                    {1, 14},
                    {1, 6},
                    {0, 6},
                    {0, 1},
                    {2, 1},
                    {2, 3},
                    {3, 3},
                    {3, 1},
                    {5, 1},
                    {5, 6},
                    {6, 6},
                    {6, 4},
                    {7.5, 4}},
        .archFoot = 10,
        .arrowSlit = {},
    };
    return drawing;
}

constexpr qreal leastForDetails = 24;

QRectF middleSquare(const QRectF& box) {
    const qreal side = std::min(box.width(), box.height());
    return {box.center() - QPointF(side, side) / 2, QSizeF(side, side)};
}

/// Where a length from the square's edge ends up.
using Placing = std::function<qreal(qreal)>;

QPainterPath castleIn(const QRectF& square, const CastleDrawing& drawing, const Placing& placed) {
    const auto left = [&](QPointF point) {
        return QPointF(square.left() + placed(point.x()), square.top() + placed(point.y()));
    };
    const auto right = [&](QPointF point) {
        return QPointF(square.right() - placed(point.x()), square.top() + placed(point.y()));
    };
    QPainterPath path(left(drawing.outline.front()));
    for (const QPointF& point : drawing.outline)
        path.lineTo(left(point));
    std::for_each(drawing.outline.rbegin(), drawing.outline.rend(),
                  [&](const QPointF& point) { path.lineTo(right(point)); });

    const QPointF foot(drawing.outline.front().x(), drawing.archFoot);
    const qreal width = right(foot).x() - left(foot).x();
    path.arcTo(QRectF(left(foot) - QPointF(0, width / 2), QSizeF(width, width)), 0, 180);
    path.closeSubpath();
    if (const auto& slit = drawing.arrowSlit) {
        path.addRect(QRectF(left(slit->topLeft()), left(slit->bottomRight())));
        path.addRect(QRectF(right(slit->topRight()), right(slit->bottomLeft())));
    }
    return path;
}

const CastleDrawing& drawingFor(qreal points) {
    return points < leastForDetails ? smallDrawing() : fullDrawing();
}

} // namespace

QPainterPath castleMark(const QRectF& box) {
    const QRectF square = middleSquare(box);
    const CastleDrawing& drawing = drawingFor(square.height());
    const qreal scale = square.height() / drawing.grid;
    return castleIn(square, drawing, [scale](qreal length) { return length * scale; });
}

QPainterPath castleMarkOnPixels(const QRectF& box, qreal devicePixelRatio) {
    const QRectF exact = middleSquare(box);
    const int side = std::max(1, qRound(exact.width()));
    const QPointF corner = exact.center() - QPointF(side, side) / 2;
    const QRectF square(QPointF(corner.toPoint()), QSizeF(side, side));
    const CastleDrawing& drawing = drawingFor(side / devicePixelRatio);
    const qreal scale = side / drawing.grid;
    return castleIn(square, drawing, [scale](qreal length) { return std::round(length * scale); });
}

void paintCastleMark(QPainter& painter, const QRectF& box, const QColor& color) {
    if (box.isEmpty())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (const auto toPixels = pixelTransform(painter)) {
        const PixelPainting pixels(painter, *toPixels);
        painter.fillPath(castleMarkOnPixels(toPixels->mapRect(box), toPixels->m11()), color);
    } else {
        painter.fillPath(castleMark(box), color);
    }
    painter.restore();
}

} // namespace tolvar
