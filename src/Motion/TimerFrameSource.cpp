#include "Motion/TimerFrameSource.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace tolvar {

TimerFrameSource::TimerFrameSource(double rate) {
    setRate(rate);
    m_clock.start();
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { frame(); });
}

void TimerFrameSource::setRate(double rate) {
    m_rate = std::isfinite(rate) ? std::clamp(rate, slowestRate, fastestRate) : defaultRate;
}

void TimerFrameSource::start(Callback callback) {
    m_callback = std::move(callback);
    m_nextFrame = mediaTime() + 1 / m_rate;
    awaitNextFrame();
}

void TimerFrameSource::stop() {
    m_timer.stop();
}

double TimerFrameSource::mediaTime() const {
    return std::chrono::duration<double>(std::chrono::nanoseconds(m_clock.nsecsElapsed())).count();
}

/// The next frame is due one interval after this one was, not after it was delivered: timers count
/// whole milliseconds, and what that lacks or exceeds would add up. Frames that were missed are
/// not made up for.
void TimerFrameSource::frame() {
    const double now = mediaTime();
    m_nextFrame = std::max(m_nextFrame, now - 1 / m_rate) + 1 / m_rate;
    awaitNextFrame();
    const auto callback = m_callback; // which may destroy this object, or start it anew
    callback(now);
}

void TimerFrameSource::awaitNextFrame() {
    const std::chrono::duration<double> wait(m_nextFrame - mediaTime());
    m_timer.start(std::max(std::chrono::round<std::chrono::milliseconds>(wait),
                           std::chrono::milliseconds(1)));
}

} // namespace tolvar
