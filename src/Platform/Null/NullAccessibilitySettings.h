#pragma once

#include "Platform/Interfaces/AccessibilitySettings.h"

namespace tolvar {

/// Nothing is known of the user's wishes.
class NullAccessibilitySettings final : public AccessibilitySettings {
public:
    bool reducesMotion() const override { return false; }
    Subscription observe(std::function<void()>) override { return {}; }
};

} // namespace tolvar
