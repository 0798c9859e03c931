#pragma once

#include "Platform/Interfaces/Clock.h"
#include "Platform/Interfaces/TimerService.h"

#include <cstddef>
#include <map>

namespace tolvar::test {

/// A clock and its timers, moved by hand. Time passes only in `advance`; due timers fire in the
/// order of their moments, each seeing its own moment as now.
class HandClock final : public Clock, public TimerService {
public:
    /// The present moment at the start of each test: 2026-01-05 09:00:00 UTC, a Monday.
    static constexpr Date start{789296400};

    Date now() const override { return m_now; }
    std::unique_ptr<Timer> repeat(std::chrono::milliseconds interval, Callback callback) override;
    std::unique_ptr<Timer> once(std::chrono::milliseconds delay, Callback callback) override;

    /// Lets time pass and fires what falls due, also at exactly the end.
    void advance(Seconds seconds);
    /// Sets the wall clock, as a user or a time server would: no timer notices.
    void setWallClock(Date now) { m_now = now; }
    /// A night in suspend: the wall clock moves on, timers stand still.
    void suspend(Seconds seconds) { m_now = m_now + seconds; }

    /// How many timers run.
    std::size_t runningTimers() const { return m_timers.size(); }

private:
    class HandTimer;
    struct Entry {
        double dueMilliseconds;
        double intervalMilliseconds; ///< 0 for one that fires once
        Callback callback;
    };

    std::unique_ptr<Timer> add(std::chrono::milliseconds delay, double intervalMilliseconds,
                               Callback callback);
    void moveTo(double milliseconds);
    std::map<int, Entry>::iterator nextDue();

    Date m_now = start;
    /// Monotonic time since the clock was made.
    double m_milliseconds = 0;
    int m_nextId = 0;
    std::map<int, Entry> m_timers;
};

} // namespace tolvar::test
