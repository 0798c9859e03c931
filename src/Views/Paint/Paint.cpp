#include "Views/Paint/Paint.h"

#include "Views/Theme/Instrument.h"
#include "Views/Theme/PixelGrid.h"

#include <QBitmap>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace tolvar::Paint {

namespace {

constexpr double hoverLift = 0.055;
constexpr double ringWidth = 1;
/// Letters gain weight when they are set as light on dark; outlines get it from a pen. Points.
constexpr double outlineWeight = 0.3;
/// Pieces of the glow's fall.
constexpr int glowSteps = 8;

QLinearGradient faceGradient(const QRectF& rect, const Bevel& bevel) {
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    for (const auto& stop : bevel.face)
        gradient.setColorAt(stop.position, stop.color);
    return gradient;
}

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QBrush& brush) {
    const double fitting = std::max(0.0, std::min({radius, rect.width() / 2, rect.height() / 2}));
    painter.setBrush(brush);
    painter.drawRoundedRect(rect, fitting, fitting);
}

/// Letters at rest stand on whole pixels. Those that move are drawn as outlines, which go as far as
/// they are told and not to the next pixel.
void line(QPainter& painter, const QPointF& start, const QString& text, const QFont& font,
          const QColor& color) {
    if (pixelTransform(painter)) {
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(QPointF(start.x(), onPixels(painter, {start, QSizeF(0, 0)}).y()), text);
        return;
    }
    QPainterPath outlines;
    outlines.addText(start, font, text);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, outlineWeight));
    painter.setBrush(color);
    painter.drawPath(outlines);
}

QColor faded(QColor color, double opacity) {
    color.setAlphaF(static_cast<float>(std::clamp(opacity, 0.0, 1.0)));
    return color;
}

} // namespace

double wholePixels(const QPainter& painter, double length) {
    const double scale = painter.device()->devicePixelRatioF();
    return length > 0 ? std::max(1.0, std::round(length * scale)) / scale : 0;
}

QRectF onPixels(const QPainter& painter, const QRectF& rect) {
    const auto toPixels = pixelTransform(painter);
    if (!toPixels)
        return rect;
    const QRectF pixels = toPixels->mapRect(rect);
    const QRectF whole(QPointF(std::round(pixels.left()), std::round(pixels.top())),
                       QPointF(std::round(pixels.right()), std::round(pixels.bottom())));
    return toPixels->inverted().mapRect(whole);
}

void bevel(QPainter& painter, const QRectF& rect, double radius, const Bevel& bevel) {
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRectF whole = onPixels(painter, rect);
    const double top = wholePixels(painter, bevel.topWidth);
    const double bottom = wholePixels(painter, bevel.bottomWidth);
    fillRounded(painter, whole, radius, bevel.bottom);
    fillRounded(painter, whole.adjusted(0, 0, 0, -bottom), radius, bevel.top);
    const QRectF face = whole.adjusted(0, top, 0, -bottom);
    fillRounded(painter, face, radius, faceGradient(face, bevel));
}

void hover(QPainter& painter, const QRectF& rect, double radius, const Bevel& bevel,
           double amount) {
    if (amount <= 0)
        return;
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRectF face = onPixels(painter, rect)
                            .adjusted(0, wholePixels(painter, bevel.topWidth), 0,
                                      -wholePixels(painter, bevel.bottomWidth));
    QLinearGradient breath(face.topLeft(), face.bottomLeft());
    breath.setColorAt(0, faded(Qt::white, hoverLift * amount));
    breath.setColorAt(1, faded(Qt::white, hoverLift * amount / 2));
    fillRounded(painter, face, radius, breath);
}

void focusRing(QPainter& painter, const QRectF& rim, double radius, double outset) {
    const double gap = wholePixels(painter, outset);
    outline(painter, onPixels(painter, rim).adjusted(-gap, -gap, gap, gap), radius + outset,
            Instrument::Palette::amber, ringWidth);
}

void ruleBelow(QPainter& painter, const QRectF& rect, const QColor& color) {
    const QRectF whole = onPixels(painter, rect);
    const double width = wholePixels(painter, 1);
    painter.fillRect(QRectF(whole.left(), whole.bottom() - width, whole.width(), width), color);
}

void outline(QPainter& painter, const QRectF& rect, double radius, const QColor& color,
             double width) {
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const double whole = wholePixels(painter, width);
    painter.setPen(QPen(color, whole));
    const double middle = whole / 2;
    const double inner = std::max(0.0, radius - middle);
    painter.drawRoundedRect(onPixels(painter, rect).adjusted(middle, middle, -middle, -middle),
                            inner, inner);
}

QRegion roundedRegion(const QRect& rect, double radius) {
    QBitmap covered(rect.size());
    covered.clear();
    QPainter painter(&covered);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(QRectF(QPointF(), QSizeF(rect.size())), radius, radius);
    painter.end();
    return QRegion(covered).translated(rect.topLeft());
}

void fill(QPainter& painter, const QRectF& rect, double radius, const QColor& color) {
    if (rect.isEmpty())
        return;
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    fillRounded(painter, onPixels(painter, rect), radius, color);
}

void notch(QPainter& painter, const QPointF& top, double height, const QColor& color) {
    const double width = wholePixels(painter, 1);
    painter.fillRect(onPixels(painter, {top.x() - width / 2, top.y(), width, height}), color);
}

/// The glow falls off with the square of the way out, as light on a matte panel does.
void light(QPainter& painter, const QPointF& center, double diameter, const QColor& color,
           double glow, double reach) {
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double radius = diameter / 2;
    if (glow > 0 && reach > 0) {
        const double outer = radius + reach;
        QRadialGradient fall(center, outer);
        for (int step = 0; step <= glowSteps; ++step) {
            const double way = static_cast<double>(step) / glowSteps;
            fall.setColorAt((radius + way * reach) / outer,
                            faded(color, glow * color.alphaF() * (1 - way) * (1 - way)));
        }
        painter.setBrush(fall);
        painter.drawEllipse(center, outer, outer);
    }
    painter.setBrush(color);
    painter.drawEllipse(center, radius, radius);
}

double textWidth(const QString& line, const QFont& font) {
    const double advance = QFontMetricsF(font).horizontalAdvance(line);
    return line.isEmpty() ? 0 : advance - font.letterSpacing();
}

void text(QPainter& painter, const QRectF& rect, const QString& content, const QFont& font,
          const QColor& color, Qt::Alignment horizontally) {
    const Saved saved(painter);
    const QFontMetricsF metrics(font);
    const QString fitting = metrics.elidedText(content, Qt::ElideRight,
                                               rect.width() + std::abs(font.letterSpacing()) + 0.5);
    const double width = textWidth(fitting, font);
    double left = rect.left();
    if (horizontally & Qt::AlignHCenter)
        left += (rect.width() - width) / 2;
    else if (horizontally & Qt::AlignRight)
        left += rect.width() - width;
    const double baseline = rect.center().y() + metrics.capHeight() / 2;
    line(painter, {left, baseline}, fitting, font, color);
}

} // namespace tolvar::Paint
