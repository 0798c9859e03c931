#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

namespace tolvar {

/// The index of the first of the screens' frames that holds the point; -1 when none does.
int screenUnder(const QPoint& point, const std::vector<QRect>& frames);

/// Where a window of that size stands in the middle of a screen's whole frame, panels included,
/// rounded to whole points.
QPoint centeredOrigin(const QRect& frame, const QSize& window);

} // namespace tolvar
