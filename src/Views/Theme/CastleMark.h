#pragma once

#include <QPainterPath>

class QColor;
class QPainter;

namespace tolvar {

/// The castle of Tolvar: two towers with battlements, a wall between them and an arched gate, as
/// one closed path to be filled, in the largest square in the middle of `box`, whose sides it
/// reaches. Symmetric to the square's upright axis. Below 24 points, which the units
/// are, it is drawn simpler and stronger.
QPainterPath castleMark(const QRectF& box);

/// The same for a box that is given in pixels of a device, `devicePixelRatio` of which make a
/// point: its sides and all its upright and level edges lie on whole pixels.
QPainterPath castleMarkOnPixels(const QRectF& box, qreal devicePixelRatio);

/// Fills the castle with a colour: on whole device pixels at rest, smoothly while the painter
/// turns it or changes its size. An empty box draws nothing.
void paintCastleMark(QPainter& painter, const QRectF& box, const QColor& color);

} // namespace tolvar
