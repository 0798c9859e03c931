#pragma once

#include "Extensions/Subscription.h"

#include <QPoint>

#include <functional>

namespace tolvar {

/// Presses of the pointer's buttons anywhere on the desktop, whichever window gets them.
class PointerPresses {
public:
    /// Called with the pointer's place, in device pixels of the whole desktop.
    using Pressed = std::function<void(const QPoint& position)>;

    virtual ~PointerPresses() = default;

    /// Tells of presses until the subscription is dropped; turning a wheel is none. Where this
    /// desktop does not tell, nothing is called.
    [[nodiscard]] virtual Subscription observe(Pressed pressed) = 0;
};

} // namespace tolvar
