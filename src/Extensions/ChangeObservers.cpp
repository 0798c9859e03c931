#include "Extensions/ChangeObservers.h"

namespace tolvar {

Subscription ChangeObservers::add(std::function<void()> changed) {
    const int id = m_nextObserver++;
    m_observers->emplace(id, std::move(changed));
    return Subscription([observers = std::weak_ptr(m_observers), id] {
        if (const auto alive = observers.lock())
            alive->erase(id);
    });
}

void ChangeObservers::tell() const {
    const auto observers = m_observers;
    const Observers now = *observers;
    for (const auto& [id, changed] : now)
        if (observers->contains(id))
            changed();
}

} // namespace tolvar
