#include "Views/Shared/WindowPoint.h"

#include <QApplication>
#include <QWidget>

namespace tolvar {

QWidget* widgetAt(const QWidget& area, const QPointF& inWindow) {
    if (QApplication::activePopupWidget())
        return nullptr;
    QWidget* const window = area.window();
    QWidget* const child = window->childAt(inWindow.toPoint());
    QWidget* const met = child ? child : window;
    return met == &area || area.isAncestorOf(met) ? met : nullptr;
}

} // namespace tolvar
