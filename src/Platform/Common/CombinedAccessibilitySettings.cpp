#include "Platform/Common/CombinedAccessibilitySettings.h"

#include <algorithm>
#include <utility>

namespace tolvar {

CombinedAccessibilitySettings::CombinedAccessibilitySettings(Sources sources)
    : m_sources(std::move(sources))
    , m_reducesMotion(doesAnyReduceMotion()) {
    for (const auto& source : m_sources)
        m_subscriptions.push_back(source->observe([this] { update(); }));
}

Subscription CombinedAccessibilitySettings::observe(std::function<void()> changed) {
    return m_observers.add(std::move(changed));
}

bool CombinedAccessibilitySettings::doesAnyReduceMotion() const {
    return std::any_of(m_sources.begin(), m_sources.end(),
                       [](const auto& source) { return source->reducesMotion(); });
}

void CombinedAccessibilitySettings::update() {
    const bool reducesMotion = doesAnyReduceMotion();
    if (std::exchange(m_reducesMotion, reducesMotion) != reducesMotion)
        m_observers.tell();
}

} // namespace tolvar
