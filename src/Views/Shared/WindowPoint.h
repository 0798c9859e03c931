#pragma once

#include <QPointF>

class QWidget;

namespace tolvar {

/// What the mouse meets at a point of the window: `area` or something in it. nullptr where the area
/// is not, something lies over it, or a menu is open, which has the mouse for itself.
QWidget* widgetAt(const QWidget& area, const QPointF& inWindow);

} // namespace tolvar
