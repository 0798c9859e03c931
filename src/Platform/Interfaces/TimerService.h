#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tolvar {

/// A running timer. Destroying it, also from within its own callback, stops it at once.
class Timer {
public:
    virtual ~Timer() = default;
};

/// Timers on the thread that owns the caller. Intervals are measured monotonically: setting the
/// wall clock does not fire or delay a timer, and time spent in suspend does not count.
class TimerService {
public:
    using Callback = std::function<void()>;

    virtual ~TimerService() = default;

    /// Calls `callback` every `interval` (> 0), first one interval from now. Ticks that could not
    /// be delivered in time are merged into one.
    [[nodiscard]] virtual std::unique_ptr<Timer> repeat(std::chrono::milliseconds interval,
                                                        Callback callback) = 0;

    /// Calls `callback` once, `delay` (>= 0) from now and never before this function has returned.
    [[nodiscard]] virtual std::unique_ptr<Timer> once(std::chrono::milliseconds delay,
                                                      Callback callback) = 0;
};

} // namespace tolvar
