#include "Views/ActiveSession/DialDrawing.h"

#include "Views/Theme/Bevel.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tolvar {

namespace {

namespace Measures = DialMeasures;

struct PlateStyle {
    QColor well{7, 8, 10};
    double wellWidth = 19;
    QColor track{25, 26, 30};
    QColor hairline{36, 48, 55, 128};
    double hairlineDiameter = 173;
    double hairlineWidth = 1;
    /// The edge of the well, which is sunken: it loses light at the top and catches it below.
    QColor rimTop{5, 5, 6};
    QColor rimBottom{40, 40, 43};
    double rimWidth = 1;
};
constexpr PlateStyle plateStyle;

struct ArcStyle {
    /// Top, middle and bottom of the dial.
    std::array<QColor, 3> face{QColor{255, 198, 79}, QColor{255, 176, 32}, QColor{226, 144, 6}};
    /// Where the lamp catches the upper edge of the arc.
    QColor edge{255, 236, 196};
    double edgeStrength = 0.7;
    double edgeOffset = 1;
    double edgeBlur = 0.5;
    double shadowStrength = 0.6;
    double shadowOffset = 1.5;
    double shadowReach = 3;
};
constexpr ArcStyle arcStyle;

/// Strokes that a shadow is made of.
constexpr int shadowSteps = 3;
constexpr double topAngle = 90;
constexpr double fullTurn = 360;

QRectF square() {
    constexpr double side = Measures::pictureSize;
    return {0, 0, side, side};
}

QRectF circle(double diameter) {
    QRectF box(0, 0, diameter, diameter);
    box.moveCenter(square().center());
    return box;
}

QPixmap blank(double scale) {
    const int side = qCeil(Measures::pictureSize * scale);
    QPixmap picture(side, side);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    return picture;
}

QLinearGradient downwards(double diameter) {
    const QRectF box = circle(diameter);
    return {box.topLeft(), box.bottomLeft()};
}

void ring(QPainter& painter, double diameter, double width, const QBrush& brush) {
    painter.setPen(QPen(brush, width));
    painter.drawEllipse(circle(diameter));
}

QPainterPath arcPath(double from, double to) {
    const QRectF box = circle(2 * Measures::radius);
    QPainterPath path;
    path.arcMoveTo(box, topAngle - fullTurn * from);
    path.arcTo(box, topAngle - fullTurn * from, fullTurn * (from - to));
    return path;
}

QPen arcPen(const QBrush& brush, double width = Measures::arcWidth) {
    return {brush, width, Qt::SolidLine, Qt::RoundCap};
}

/// The face's colours, each so much nearer to `edge`.
QLinearGradient faceGradient(double edge) {
    QLinearGradient gradient = downwards(2 * Measures::radius + Measures::arcWidth);
    for (std::size_t i = 0; i < arcStyle.face.size(); ++i)
        gradient.setColorAt(static_cast<double>(i) / (arcStyle.face.size() - 1),
                            mixedColor(arcStyle.face.at(i), arcStyle.edge, edge));
    return gradient;
}

/// The face over an arc in the colours of its edge, which is seen where the face has moved away
/// from it: once by a little less and once by a little more than the edge is wide, which softens
/// it.
void paintFace(QPainter& painter, const QPainterPath& path) {
    painter.strokePath(path, arcPen(faceGradient(arcStyle.edgeStrength)));
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    const double blur = arcStyle.edgeBlur / 2;
    painter.strokePath(path.translated(0, arcStyle.edgeOffset - blur),
                       arcPen(faceGradient(arcStyle.edgeStrength / 2)));
    painter.strokePath(path.translated(0, arcStyle.edgeOffset + blur), arcPen(faceGradient(0)));
}

/// Behind what is painted already.
void paintShadow(QPainter& painter, const QPainterPath& path, double strength) {
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    QColor shade(Qt::black);
    shade.setAlphaF(static_cast<float>(arcStyle.shadowStrength * strength / shadowSteps));
    for (int step = 1; step <= shadowSteps; ++step) {
        const double reach = arcStyle.shadowReach * step / shadowSteps;
        painter.strokePath(path.translated(0, arcStyle.shadowOffset),
                           arcPen(shade, Measures::arcWidth + 2 * reach));
    }
}

} // namespace

double arcLength(double progress) {
    return 2 * std::numbers::pi * Measures::radius * progress;
}

double arcShadowStrength(double progress) {
    return std::clamp(arcLength(progress) / Measures::arcWidth, 0.0, 1.0);
}

QRectF arcChange(double from, double to) {
    constexpr double around =
        Measures::arcWidth / 2 + arcStyle.shadowReach + arcStyle.shadowOffset + 1;
    return arcPath(std::clamp(from, 0.0, 1.0), std::clamp(to, 0.0, 1.0))
        .boundingRect()
        .adjusted(-around, -around, around, around);
}

QPixmap dialPlate(double scale) {
    QPixmap plate = blank(scale);
    QPainter painter(&plate);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr double diameter = 2 * Measures::radius;
    const double rim = diameter + plateStyle.wellWidth + plateStyle.rimWidth;
    QLinearGradient light = downwards(rim);
    light.setColorAt(0, plateStyle.rimTop);
    light.setColorAt(1, plateStyle.rimBottom);
    ring(painter, rim, plateStyle.rimWidth, light);
    ring(painter, diameter, plateStyle.wellWidth, plateStyle.well);
    ring(painter, diameter, Measures::arcWidth, plateStyle.track);
    ring(painter, plateStyle.hairlineDiameter, plateStyle.hairlineWidth, plateStyle.hairline);
    return plate;
}

QPixmap dialArc(double progress, double scale) {
    QPixmap arc = blank(scale);
    const double shown = std::clamp(progress, 0.0, 1.0);
    if (shown == 0)
        return arc;
    QPainter painter(&arc);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(std::min(arcLength(shown) / shortestArc, 1.0));
    const QPainterPath path = arcPath(0, shown);
    paintFace(painter, path);
    paintShadow(painter, path, arcShadowStrength(shown));
    return arc;
}

} // namespace tolvar
