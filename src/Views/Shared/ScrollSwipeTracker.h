#pragma once

#include "Platform/Interfaces/TimerService.h"

#include <QPointF>

#include <chrono>
#include <functional>
#include <memory>

namespace tolvar {

/// One event of a scrolling device.
struct ScrollStep {
    enum class Phase {
        none, ///< the device tells of no phases
        began,
        changed,
        ended,
        cancelled,
        momentum, ///< the hand has let go, and it glides on
        momentumEnded,
    };

    Phase phase = Phase::none;
    /// Points; which way is `isInverted`'s to say.
    QPointF delta;
    /// The device scrolls naturally: deltas have the direction of the hand, else the opposite one.
    bool isInverted = false;
    /// The pointer is over the row.
    bool isInside = false;

    bool operator==(const ScrollStep&) const = default;
};

/// Finds the sideways swipes over one row in what a touchpad or a wheel sends. What begins up or
/// down, or beside the row, is the list's, as is all that comes before the direction is known. The
/// glide after a sideways swipe is kept from everybody. Where the device tells of no phases, a
/// gesture begins with its first event and ends with a pause.
class ScrollSwipeTracker {
public:
    /// What ends a gesture without phases.
    static constexpr std::chrono::milliseconds pause{150};

    struct Callbacks {
        /// The row is to follow by this many points; the hand's direction.
        std::function<void(double delta)> changed;
        std::function<void()> ended;
    };
    enum class Verdict {
        pass,   ///< the event goes on to whom it belongs
        swallow ///< it was for the row
    };

    /// `timers` outlives the tracker.
    ScrollSwipeTracker(TimerService& timers, Callbacks callbacks);

    Verdict take(const ScrollStep& step);
    /// Whether a sideways swipe is going on.
    bool isSwiping() const { return m_axis == Axis::horizontal; }
    /// Forgets what is going on, without a call of `ended`; the rest of it passes.
    void cancel();

private:
    enum class Axis { none, undecided, horizontal, vertical };

    Verdict takePhase(const ScrollStep& step);
    Verdict takePhaseless(const ScrollStep& step);
    Verdict takeMomentum(const ScrollStep& step);
    void begin(const ScrollStep& step);
    Verdict follow(const ScrollStep& step);
    void finish();

    TimerService& m_timers;
    Callbacks m_callbacks;
    Axis m_axis = Axis::none;
    bool m_swallowsMomentum = false;
    std::unique_ptr<Timer> m_pause;
};

} // namespace tolvar
