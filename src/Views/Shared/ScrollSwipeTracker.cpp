#include "Views/Shared/ScrollSwipeTracker.h"

#include <cmath>
#include <utility>

namespace tolvar {

using Phase = ScrollStep::Phase;

ScrollSwipeTracker::ScrollSwipeTracker(TimerService& timers, Callbacks callbacks)
    : m_timers(timers)
    , m_callbacks(std::move(callbacks)) {}

ScrollSwipeTracker::Verdict ScrollSwipeTracker::take(const ScrollStep& step) {
    switch (step.phase) {
    case Phase::none:
        return takePhaseless(step);
    case Phase::momentum:
    case Phase::momentumEnded:
        return takeMomentum(step);
    default:
        return takePhase(step);
    }
}

/// An end that was never told is made up for.
void ScrollSwipeTracker::begin(const ScrollStep& step) {
    m_pause.reset();
    if (isSwiping())
        finish();
    m_axis = step.isInside ? Axis::undecided : Axis::none;
    m_swallowsMomentum = false;
}

ScrollSwipeTracker::Verdict ScrollSwipeTracker::takePhase(const ScrollStep& step) {
    if (step.phase == Phase::began)
        begin(step);
    if (step.phase != Phase::ended && step.phase != Phase::cancelled)
        return follow(step);
    if (!isSwiping()) {
        m_axis = Axis::none;
        return Verdict::pass;
    }
    m_swallowsMomentum = true;
    finish();
    return Verdict::swallow;
}

ScrollSwipeTracker::Verdict ScrollSwipeTracker::follow(const ScrollStep& step) {
    if (m_axis == Axis::undecided && !step.delta.isNull())
        m_axis =
            std::abs(step.delta.y()) < std::abs(step.delta.x()) ? Axis::horizontal : Axis::vertical;
    if (!isSwiping())
        return Verdict::pass;
    m_callbacks.changed(step.isInverted ? step.delta.x() : -step.delta.x());
    return Verdict::swallow;
}

ScrollSwipeTracker::Verdict ScrollSwipeTracker::takePhaseless(const ScrollStep& step) {
    if (!m_pause)
        begin(step);
    m_pause = m_timers.once(pause, [this] {
        m_pause.reset();
        if (isSwiping())
            finish();
    });
    return follow(step);
}

/// Some systems tell of the glide at once, in place of the end.
ScrollSwipeTracker::Verdict ScrollSwipeTracker::takeMomentum(const ScrollStep& step) {
    if (isSwiping()) {
        m_swallowsMomentum = true;
        finish();
    }
    const bool swallows = m_swallowsMomentum;
    if (step.phase == Phase::momentumEnded)
        m_swallowsMomentum = false;
    return swallows ? Verdict::swallow : Verdict::pass;
}

void ScrollSwipeTracker::finish() {
    m_axis = Axis::none;
    m_callbacks.ended();
}

void ScrollSwipeTracker::cancel() {
    m_axis = Axis::none;
}

} // namespace tolvar
