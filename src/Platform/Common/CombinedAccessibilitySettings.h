#pragma once

#include "Extensions/ObserverList.h"
#include "Platform/Interfaces/AccessibilitySettings.h"

#include <memory>
#include <vector>

namespace tolvar {

/// What several sources know of the user's wishes, taken together: a wish that one of them tells
/// of holds, whatever the others do not know.
class CombinedAccessibilitySettings final : public AccessibilitySettings {
public:
    using Sources = std::vector<std::unique_ptr<AccessibilitySettings>>;

    /// None of the sources is null. Without any, motion is not reduced.
    explicit CombinedAccessibilitySettings(Sources sources);

    bool reducesMotion() const override { return m_reducesMotion; }
    /// A change of one source that leaves the whole as it was is none.
    Subscription observe(std::function<void()> changed) override;

private:
    bool doesAnyReduceMotion() const;
    void update();

    Sources m_sources;
    bool m_reducesMotion = false;
    ObserverList<std::function<void()>> m_observers;
    std::vector<Subscription> m_subscriptions;
};

} // namespace tolvar
