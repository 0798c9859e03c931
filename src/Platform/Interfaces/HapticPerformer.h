#pragma once

namespace tolvar {

enum class HapticPattern { generic, alignment, levelChange };

/// The trackpad's haptic feedback.
class HapticPerformer {
public:
    virtual ~HapticPerformer() = default;

    /// Performs the pattern now. Callers ask the setting "hapticsEnabled" first.
    virtual void perform(HapticPattern pattern) = 0;
};

} // namespace tolvar
