#pragma once

#include <QDate>

#include <functional>
#include <memory>

namespace tolvar {

class Clock;
class Timer;
class TimerService;

/// Tells when today has become another day, for as long as somebody looks: at midnight, and within
/// a minute after the clock was set or the machine woke up.
class DayWatch {
public:
    /// Both outlive the watch.
    DayWatch(const Clock& clock, TimerService& timers, std::function<void()> changed);
    ~DayWatch();

    /// Tells at once when the day has changed since it was last watched.
    void start();
    void stop();

private:
    QDate today() const;
    void look();
    void waitOn();

    const Clock& m_clock;
    TimerService& m_timers;
    const std::function<void()> m_changed;
    QDate m_day;
    std::unique_ptr<Timer> m_timer;
};

} // namespace tolvar
