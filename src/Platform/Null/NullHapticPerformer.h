#pragma once

#include "Platform/Interfaces/HapticPerformer.h"

namespace tolvar {

/// A machine without haptic feedback.
class NullHapticPerformer final : public HapticPerformer {
public:
    void perform(HapticPattern) override {}
};

} // namespace tolvar
