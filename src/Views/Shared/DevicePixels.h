#pragma once

#include <QRect>

namespace tolvar {

/// Between the device pixels of the root window, in which panels and trays say where things are,
/// and the points in which windows are placed. Screens keep their corner in both and differ in
/// size.
namespace DevicePixels {

QRect toPoints(const QRect& pixels);
QRect fromPoints(const QRect& points);

} // namespace DevicePixels
} // namespace tolvar
