#pragma once

#include "Views/Theme/Symbol.h"

#include <QColor>
#include <QString>

#include <functional>

namespace tolvar {

/// Something that can be done with a row of a list: a key that is revealed when the row is swiped
/// aside, a line of its context menu, and an action to assistive technology.
struct SwipeAction {
    /// In the context menu, and what the key is called to those who do not see it.
    QString title;
    /// On the key.
    Symbol symbol = Symbol::trash;
    /// Of the symbol on the key.
    QColor tint = {};
    bool isEnabled = true;
    /// It destroys something.
    bool isDestructive = false;
    /// May remove the row.
    std::function<void()> action = {};
};

} // namespace tolvar
