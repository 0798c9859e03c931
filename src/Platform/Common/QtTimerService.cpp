#include "Platform/Common/QtTimerService.h"

#include <QTimer>

namespace tolvar {

namespace {

class QtTimer final : public Timer {
public:
    QtTimer(std::chrono::milliseconds interval, bool singleShot, TimerService::Callback callback) {
        m_timer.setSingleShot(singleShot);
        m_timer.setTimerType(interval >= std::chrono::seconds(1) ? Qt::CoarseTimer
                                                                 : Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, std::move(callback));
        m_timer.start(interval);
    }

private:
    QTimer m_timer;
};

} // namespace

std::unique_ptr<Timer> QtTimerService::repeat(std::chrono::milliseconds interval,
                                              Callback callback) {
    return std::make_unique<QtTimer>(interval, false, std::move(callback));
}

std::unique_ptr<Timer> QtTimerService::once(std::chrono::milliseconds delay, Callback callback) {
    return std::make_unique<QtTimer>(delay, true, std::move(callback));
}

} // namespace tolvar
