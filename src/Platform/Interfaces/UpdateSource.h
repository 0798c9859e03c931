#pragma once

#include "Extensions/Subscription.h"

#include <functional>

namespace tolvar {

/// Where newer versions come from.
class UpdateSource {
public:
    virtual ~UpdateSource() = default;

    /// False where the bundle names no feed; then the other operations do nothing.
    virtual bool isAvailable() const = 0;

    virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool checks) = 0;
    /// Starts a check that the user asked for.
    virtual void checkForUpdates() = 0;

    /// Calls `changed` at once and whenever it becomes possible or impossible to start a check.
    [[nodiscard]] virtual Subscription
    observeCanCheckForUpdates(std::function<void(bool canCheck)> changed) = 0;
};

} // namespace tolvar
