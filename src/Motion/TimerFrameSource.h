#pragma once

#include "Motion/FrameSource.h"

#include <QElapsedTimer>
#include <QTimer>

namespace tolvar {

/// Frames at a steady rate from a timer of the event loop. On the thread that made it.
class TimerFrameSource final : public FrameSource {
public:
    static constexpr double defaultRate = 60;
    static constexpr double slowestRate = 10;
    static constexpr double fastestRate = 240;

    /// `rate`: frames per second.
    explicit TimerFrameSource(double rate = defaultRate);

    /// Changes the frames per second, as when the window moves to another screen, from the next
    /// frame on. Brought into `slowestRate` … `fastestRate`; `defaultRate` if it is not finite.
    void setRate(double rate);
    double rate() const { return m_rate; }

    void start(Callback callback) override;
    void stop() override;
    double mediaTime() const override;

private:
    void frame();
    void awaitNextFrame();

    double m_rate;
    double m_nextFrame = 0; ///< media time
    Callback m_callback;
    QElapsedTimer m_clock;
    QTimer m_timer;
};

} // namespace tolvar
