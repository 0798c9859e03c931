#pragma once

#include "Extensions/Subscription.h"

#include <functional>

namespace tolvar {

/// What the user has told the desktop about how programs are to behave towards them.
class AccessibilitySettings {
public:
    virtual ~AccessibilitySettings() = default;

    /// Whether things are to change without being seen to move. False while that is not known.
    virtual bool reducesMotion() const = 0;
    /// Calls `changed` after each change of `reducesMotion`, until the subscription is dropped;
    /// not at once.
    [[nodiscard]] virtual Subscription observe(std::function<void()> changed) = 0;
};

} // namespace tolvar
