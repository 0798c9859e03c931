#include "Views/Shared/SwipeActionsFace.h"

#include "Views/Shared/KeyButton.h"
#include "Views/Shared/SwipeActionsContainer.h"

#include <QAbstractScrollArea>

#include <algorithm>
#include <vector>

namespace tolvar {

namespace {

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* row = qobject_cast<SwipeActionsContainer*>(object);
    return row ? new SwipeActionsFace(row) : nullptr;
}

} // namespace

void SwipeActionsFace::install() {
    QAccessible::installFactory(faceOf);
}

SwipeActionsFace::SwipeActionsFace(SwipeActionsContainer* row)
    : QAccessibleWidget(row, QAccessible::ListItem) {}

SwipeActionsContainer& SwipeActionsFace::row() const {
    return *static_cast<SwipeActionsContainer*>(widget());
}

/// A list has its rows itself; that they stand in its viewport concerns nobody.
QAccessibleInterface* SwipeActionsFace::parent() const {
    const QWidget* viewport = row().parentWidget();
    auto* area = viewport ? qobject_cast<QAbstractScrollArea*>(viewport->parentWidget()) : nullptr;
    if (!area || area->viewport() != viewport)
        return QAccessibleWidget::parent();
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(area);
    return list && list->role() == QAccessible::List ? list : QAccessibleWidget::parent();
}

/// The card and the keys that are revealed.
std::vector<QWidget*> SwipeActionsFace::parts() const {
    std::vector<QWidget*> found{&row().content()};
    for (KeyButton* key : row().findChildren<KeyButton*>(QString(), Qt::FindDirectChildrenOnly))
        if (key->isVisible())
            found.push_back(key);
    return found;
}

int SwipeActionsFace::childCount() const {
    return static_cast<int>(parts().size());
}

QAccessibleInterface* SwipeActionsFace::child(int index) const {
    const auto found = parts();
    const auto wanted = static_cast<std::size_t>(index);
    return index >= 0 && wanted < found.size()
               ? QAccessible::queryAccessibleInterface(found[wanted])
               : nullptr;
}

int SwipeActionsFace::indexOfChild(const QAccessibleInterface* child) const {
    const auto found = parts();
    const auto place = std::ranges::find(found, child ? child->object() : nullptr);
    return place == found.end() ? -1 : static_cast<int>(place - found.begin());
}

QStringList SwipeActionsFace::actionNames() const {
    QStringList names;
    for (const SwipeAction& action : row().actions())
        if (action.isEnabled)
            names.append(action.title);
    return names << showMenuAction() << setFocusAction();
}

void SwipeActionsFace::doAction(const QString& name) {
    if (name == showMenuAction())
        return row().openMenu(row().mapToGlobal(row().rect().center()));
    const auto& actions = row().actions();
    const auto found = std::ranges::find(actions, name, &SwipeAction::title);
    if (found == actions.end())
        QAccessibleWidget::doAction(name);
    else
        row().perform(static_cast<int>(found - actions.begin()));
}

} // namespace tolvar
