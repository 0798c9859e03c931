#pragma once

#include "Extensions/Subscription.h"

#include <map>
#include <memory>
#include <utility>

namespace tolvar {

/// Those who want to be told of something. Subscriptions may outlive the list. A copy is the same
/// list.
template<typename Observer>
class ObserverList {
public:
    /// `observer` is told until the subscription is dropped.
    [[nodiscard]] Subscription add(Observer observer) {
        const int id = m_observers->next++;
        m_observers->byId.emplace(id, std::move(observer));
        return Subscription([weak = std::weak_ptr(m_observers), id] {
            if (const auto observers = weak.lock())
                observers->byId.erase(id);
        });
    }

    /// Calls `tell` for each observer that is still there when its turn comes. Any of them may
    /// subscribe, drop any subscription, or destroy the list.
    template<typename Tell>
    void tell(const Tell& tell) const {
        const auto observers = m_observers;
        const std::map<int, Observer> present = observers->byId;
        for (const auto& [id, observer] : present)
            if (observers->byId.contains(id))
                tell(observer);
    }

    /// Calls each observer, where they are functions themselves.
    void tell() const {
        tell([](const Observer& observer) { observer(); });
    }

    /// Calls one of the functions that each observer holds, unless it is empty.
    template<typename Function, typename... Arguments>
    void call(Function Observer::*function, const Arguments&... arguments) const {
        tell([&](const Observer& observer) {
            if (observer.*function)
                (observer.*function)(arguments...);
        });
    }

private:
    struct Observers {
        std::map<int, Observer> byId;
        int next = 0;
    };
    std::shared_ptr<Observers> m_observers = std::make_shared<Observers>();
};

} // namespace tolvar
