#pragma once

#include <QPixmap>

namespace tolvar {

/// The measures of the dial, in points.
namespace DialMeasures {

/// The square that it takes in a layout.
inline constexpr double size = 200;
/// Of the middle line of track and arc.
inline constexpr double radius = 93;
inline constexpr double arcWidth = 14;
/// How far the well and its light reach beyond the square, on every side.
inline constexpr int overhang = 8;
/// The side of its pictures.
inline constexpr int pictureSize = static_cast<int>(size) + 2 * overhang;

} // namespace DialMeasures

/// How strong the shadow under the arc is that shows `progress`, 0 to 1: it grows with the arc
/// until that is as long as it is wide.
double arcShadowStrength(double progress);

/// The length of the arc that shows `progress`, in points, along its middle.
double arcLength(double progress);

/// The length, in points, up to which the arc comes out of the track little by little, so that its
/// round ends are not there all at once.
inline constexpr double shortestArc = 0.06;

/// What of the picture changes when the arc goes from one progress to another, in points.
QRectF arcChange(double from, double to);

/// What never changes of the dial: well, track and hairline, for a device with `scale` pixels to a
/// point.
QPixmap dialPlate(double scale);

/// The arc that shows `progress`, which is brought into 0 to 1, with its shadow, on nothing.
QPixmap dialArc(double progress, double scale);

} // namespace tolvar
