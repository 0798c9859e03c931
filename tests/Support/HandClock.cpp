#include "Support/HandClock.h"

#include <algorithm>

namespace tolvar::test {

class HandClock::HandTimer final : public Timer {
public:
    HandTimer(HandClock& clock, int id)
        : m_clock(clock)
        , m_id(id) {}
    ~HandTimer() override { m_clock.m_timers.erase(m_id); }

private:
    HandClock& m_clock;
    int m_id;
};

std::unique_ptr<Timer> HandClock::repeat(std::chrono::milliseconds interval, Callback callback) {
    return add(interval, static_cast<double>(interval.count()), std::move(callback));
}

std::unique_ptr<Timer> HandClock::once(std::chrono::milliseconds delay, Callback callback) {
    return add(delay, 0, std::move(callback));
}

std::unique_ptr<Timer> HandClock::add(std::chrono::milliseconds delay, double intervalMilliseconds,
                                      Callback callback) {
    const int id = m_nextId++;
    m_timers.emplace(id, Entry{m_milliseconds + static_cast<double>(delay.count()),
                               intervalMilliseconds, std::move(callback)});
    return std::make_unique<HandTimer>(*this, id);
}

void HandClock::advance(Seconds seconds) {
    const double end = m_milliseconds + seconds * 1000;
    for (auto due = nextDue(); due != m_timers.end() && due->second.dueMilliseconds <= end;
         due = nextDue()) {
        moveTo(due->second.dueMilliseconds);
        const auto callback = due->second.callback;
        if (due->second.intervalMilliseconds > 0)
            due->second.dueMilliseconds += due->second.intervalMilliseconds;
        else
            m_timers.erase(due);
        callback();
    }
    moveTo(end);
}

void HandClock::moveTo(double milliseconds) {
    m_now = m_now + (milliseconds - m_milliseconds) / 1000;
    m_milliseconds = milliseconds;
}

std::map<int, HandClock::Entry>::iterator HandClock::nextDue() {
    return std::min_element(m_timers.begin(), m_timers.end(), [](const auto& a, const auto& b) {
        return a.second.dueMilliseconds < b.second.dueMilliseconds;
    });
}

} // namespace tolvar::test
