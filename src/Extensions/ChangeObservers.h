#pragma once

#include "Extensions/Subscription.h"

#include <functional>
#include <map>
#include <memory>

namespace tolvar {

/// Those who want to be told that something has changed, a member of what changes.
class ChangeObservers {
public:
    ChangeObservers() = default;
    ChangeObservers(const ChangeObservers&) = delete;
    ChangeObservers& operator=(const ChangeObservers&) = delete;

    /// Has `tell` call `changed` until the subscription is dropped, which may outlive this object.
    [[nodiscard]] Subscription add(std::function<void()> changed);
    /// Calls everyone in the order of their coming. They may drop subscriptions, whose callbacks
    /// are then left out, add others, which are called from the next time on, and destroy this
    /// object.
    void tell() const;

private:
    using Observers = std::map<int, std::function<void()>>;

    std::shared_ptr<Observers> m_observers = std::make_shared<Observers>();
    int m_nextObserver = 0;
};

} // namespace tolvar
