#pragma once

#include "Platform/Interfaces/TimerService.h"

namespace tolvar {

/// Timers of the Qt event loop of the calling thread. Intervals of a second and more may be off
/// by up to 5 % so that they share wake-ups.
class QtTimerService final : public TimerService {
public:
    std::unique_ptr<Timer> repeat(std::chrono::milliseconds interval, Callback callback) override;
    std::unique_ptr<Timer> once(std::chrono::milliseconds delay, Callback callback) override;
};

} // namespace tolvar
