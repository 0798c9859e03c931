#pragma once

#include "Extensions/ObserverList.h"
#include "Platform/Interfaces/AccessibilitySettings.h"

#include <utility>

namespace tolvar::test {

/// Wishes that are set by hand.
class FakeAccessibilitySettings final : public AccessibilitySettings {
public:
    explicit FakeAccessibilitySettings(bool reducesMotion = false)
        : m_reducesMotion(reducesMotion) {}

    bool reducesMotion() const override { return m_reducesMotion; }
    Subscription observe(std::function<void()> changed) override {
        return m_observers.add(std::move(changed));
    }
    /// Tells everyone, as a change of the user's.
    void setReducesMotion(bool reducesMotion) {
        if (std::exchange(m_reducesMotion, reducesMotion) != reducesMotion)
            m_observers.tell();
    }

private:
    bool m_reducesMotion;
    ObserverList<std::function<void()>> m_observers;
};

} // namespace tolvar::test
