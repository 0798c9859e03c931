#pragma once

#include "Extensions/Date.h"
#include "Models/BlockCategory.h"

#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

namespace tolvar {

enum class SessionOutcome { completed, endedEarly };

/// Whether a session is on.
enum class SessionStatus { ready, focusing, paused };

/// One focus session from its planning to its end; also an entry of the history.
struct FocusSession {
    /// The longest a pause may be, and the most that one pause stops the session's clock.
    static constexpr Seconds maximumPause = 120;
    static constexpr int maximumPauseCount = 2;

    /// A fresh one for each session.
    QUuid id = QUuid::createUuid();
    /// What the user means to do; may be empty.
    QString goal;
    /// Planned length of the focus time; grows when the session is extended.
    Seconds duration = 0;
    /// Absent until the session starts.
    std::optional<Date> startTime;
    /// While running, the planned end; afterwards the moment it ended.
    std::optional<Date> endTime;
    /// Applications chosen one by one, by display name.
    std::vector<QString> blockedApps;
    /// Websites chosen one by one.
    std::vector<QString> blockedWebsites;
    /// Copies of the chosen categories, as they were when the session was made.
    std::vector<BlockCategory> blockCategories;
    /// Running, paused or not.
    bool isActive = false;
    bool isPaused = false;
    /// When the current pause began. A session stopped during a pause keeps it.
    std::optional<Date> pausedAt;
    /// Sum of the finished pauses, each counted at most `maximumPause`.
    Seconds totalPausedTime = 0;
    /// How it ended; absent until then.
    std::optional<SessionOutcome> outcome;
    /// Measured when the session ended.
    std::optional<Seconds> focusedTime;
    /// Pauses taken; absent reads as 0.
    std::optional<int> pauseCount = 0;

    /// Seconds until the time is up, from `duration` down to exactly 0. The clock stands still
    /// during a pause, for at most `maximumPause`. A session that is not active reports its
    /// whole `duration`.
    Seconds remainingTime(Date now) const;
    /// Seconds of focus so far, between 0 and `duration`; pauses do not count, each up to
    /// `maximumPause`.
    Seconds elapsedFocusTime(Date now) const;
    /// Whole seconds left of the current pause, rounded up: 120 at its start, 1 in its last
    /// second, then 0. Without a pause 120.
    int pauseRemainingSeconds(Date now) const;

    /// A new, not yet started session with the same plan and another goal.
    FocusSession restarted(const QString& newGoal) const;

    bool operator==(const FocusSession&) const = default;

private:
    /// The moment up to which the session's clock has run.
    Date reference(Date now) const;
};

} // namespace tolvar
