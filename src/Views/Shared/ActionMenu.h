#pragma once

#include "Views/Shared/SwipeAction.h"

#include <vector>

class QMenu;
class QWidget;

namespace tolvar {

/// A context menu of these actions and, beneath a line, of those that concern more than one row.
/// Destroys itself when it closes; `owner` owns it until then. nullptr if there are none at all.
QMenu* makeActionMenu(const std::vector<SwipeAction>& own, const std::vector<SwipeAction>& common,
                      QWidget& owner);

} // namespace tolvar
