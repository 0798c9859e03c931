#include "Models/FocusSession.h"

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

/// The lower bound first, then the upper: with a negative `duration` the result is `duration`.
Seconds clampedToDuration(Seconds elapsed, Seconds duration) {
    return std::min(std::max(elapsed, 0.0), duration);
}

} // namespace

Date FocusSession::reference(Date now) const {
    if (!isPaused || !pausedAt)
        return now;
    return std::max(*pausedAt, now - maximumPause);
}

Seconds FocusSession::remainingTime(Date now) const {
    if (!isActive)
        return duration;
    return duration - (startTime ? elapsedFocusTime(now) : 0);
}

Seconds FocusSession::elapsedFocusTime(Date now) const {
    if (!startTime)
        return 0;
    return clampedToDuration((reference(now) - *startTime) - totalPausedTime, duration);
}

int FocusSession::pauseRemainingSeconds(Date now) const {
    if (!isPaused || !pausedAt)
        return static_cast<int>(maximumPause);
    const Seconds paused = now - *pausedAt;
    if (paused < 0)
        return static_cast<int>(maximumPause);
    return static_cast<int>(std::ceil(std::max(maximumPause - paused, 0.0)));
}

FocusSession FocusSession::restarted(const QString& newGoal) const {
    FocusSession session;
    session.goal = newGoal;
    session.duration = duration;
    session.blockedApps = blockedApps;
    session.blockedWebsites = blockedWebsites;
    session.blockCategories = blockCategories;
    return session;
}

} // namespace tolvar
