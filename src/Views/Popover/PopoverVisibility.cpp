#include "Views/Popover/PopoverVisibility.h"

#include <utility>

namespace tolvar {

namespace {

PopoverVisibility* sharedVisibility = nullptr;

} // namespace

PopoverVisibility::PopoverVisibility(QObject* parent)
    : QObject(parent) {
    if (!sharedVisibility)
        sharedVisibility = this;
}

PopoverVisibility::~PopoverVisibility() {
    if (sharedVisibility == this)
        sharedVisibility = nullptr;
}

PopoverVisibility& PopoverVisibility::shared() {
    Q_ASSERT(sharedVisibility);
    return *sharedVisibility;
}

void PopoverVisibility::setShown(bool isShown) {
    if (std::exchange(m_isShown, isShown) != isShown)
        Q_EMIT changed(isShown);
}

} // namespace tolvar
