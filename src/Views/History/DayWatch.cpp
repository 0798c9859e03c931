#include "Views/History/DayWatch.h"

#include "Extensions/LocalTime.h"
#include "Platform/Interfaces/Clock.h"
#include "Platform/Interfaces/TimerService.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace tolvar {

namespace {

/// Timers know nothing of a clock that is set, nor of a night in suspend.
constexpr Seconds longestWait = 60;

Seconds untilTomorrow(Date now) {
    const QDateTime moment = localTime(now);
    return static_cast<Seconds>(moment.msecsTo(moment.date().addDays(1).startOfDay())) / 1000;
}

} // namespace

DayWatch::DayWatch(const Clock& clock, TimerService& timers, std::function<void()> changed)
    : m_clock(clock)
    , m_timers(timers)
    , m_changed(std::move(changed))
    , m_day(today()) {}

DayWatch::~DayWatch() = default;

QDate DayWatch::today() const {
    return localTime(m_clock.now()).date();
}

void DayWatch::start() {
    waitOn();
    look();
}

void DayWatch::stop() {
    m_timer.reset();
}

void DayWatch::look() {
    if (const QDate day = today(); std::exchange(m_day, day) != day)
        m_changed();
}

void DayWatch::waitOn() {
    const Seconds wait = std::clamp(untilTomorrow(m_clock.now()), 0.0, longestWait);
    const std::chrono::milliseconds delay(static_cast<qint64>(std::ceil(wait * 1000)));
    m_timer = m_timers.once(delay, [this] {
        waitOn();
        look();
    });
}

} // namespace tolvar
