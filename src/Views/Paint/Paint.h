#pragma once

#include "Views/Theme/Bevel.h"

#include <QFont>
#include <QPainter>
#include <QRegion>
#include <QString>

/// The words that every picture of the window is told in. Lengths are points (logical pixels);
/// edges fall on device pixels at every scale. Nothing here leaves a mark on the painter's state.
namespace tolvar::Paint {

/// Saves a painter's state and brings it back at the end of its life.
class [[nodiscard]] Saved {
public:
    explicit Saved(QPainter& painter)
        : m_painter(painter) {
        m_painter.save();
    }
    ~Saved() { m_painter.restore(); }
    Saved(const Saved&) = delete;
    Saved& operator=(const Saved&) = delete;

private:
    QPainter& m_painter;
};

/// The length nearest to `length` that is whole device pixels, at least one where `length` is not
/// 0.
double wholePixels(const QPainter& painter, double length);
/// The rectangle with its edges moved to the nearest device pixels.
QRectF onPixels(const QPainter& painter, const QRectF& rect);

/// A face with its lit and its shaded edge. The edges follow the corners and thin out to the sides.
void bevel(QPainter& painter, const QRectF& rect, double radius, const Bevel& bevel);
/// The breath of light on a face under the pointer; `amount` 0 to 1.
void hover(QPainter& painter, const QRectF& rect, double radius, const Bevel& bevel, double amount);
/// The amber hairline just outside the rim of what has the keyboard, `outset` from it.
void focusRing(QPainter& painter, const QRectF& rim, double radius, double outset);
/// A horizontal line of one point at the bottom of the rectangle.
void ruleBelow(QPainter& painter, const QRectF& rect, const QColor& color);
/// A line inside the edge of a rounded rectangle, one device-pixel crisp.
void outline(QPainter& painter, const QRectF& rect, double radius, const QColor& color,
             double width = 1);
/// The points that a rounded rectangle covers at least half: the shape of a window that nothing can
/// be seen through.
QRegion roundedRegion(const QRect& rect, double radius);
/// A rounded rectangle of one colour.
void fill(QPainter& painter, const QRectF& rect, double radius, const QColor& color);
/// An upright mark of one point's width, `height` high from `top` on.
void notch(QPainter& painter, const QPointF& top, double height, const QColor& color);
/// A disc of light: its own colour, and around it a glow that reaches `reach` points further.
void light(QPainter& painter, const QPointF& center, double diameter, const QColor& color,
           double glow, double reach);

/// One line, vertically centred by the height of its capitals rather than by the line's, which is
/// where the eye finds the middle; cut with an ellipsis where it does not fit.
void text(QPainter& painter, const QRectF& rect, const QString& content, const QFont& font,
          const QColor& color, Qt::Alignment horizontally = Qt::AlignLeft);
/// The width that `text` takes: without the tracking behind the last letter.
double textWidth(const QString& line, const QFont& font);

} // namespace tolvar::Paint
