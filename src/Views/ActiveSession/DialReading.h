#pragma once

#include "Models/FocusSession.h"

#include <QString>

namespace tolvar {

/// A session's planned length in words, rounded down: "25 minutes", "1 minute", "0 minutes", "2
/// hours", and what is neither whole hours nor below one in compact form: "1h 30m". Lengths beyond
/// what fits an int of seconds count as the nearest that does.
QString durationPhrase(Seconds duration);

/// What the dial shows of a session at one moment.
struct DialReading {
    /// Whole seconds left: the last one counts until it is over.
    int remainingSeconds = 0;
    /// The part of the session that has elapsed, 0 to 1; 0 for a session without length.
    double progress = 0;
    /// The session's planned length.
    Seconds duration = 0;
    bool isPaused = false;
    /// Left of the current pause.
    int pauseRemainingSeconds = 0;

    static DialReading of(const FocusSession& session, Date now);

    /// The time left: "24:59".
    QString clock() const;
    /// What stands below the clock while the session runs ("of 25 minutes"), while it is paused
    /// ("Paused for 1:59"), and now.
    QString runningCaption() const;
    QString pausedCaption() const;
    QString caption() const { return isPaused ? pausedCaption() : runningCaption(); }

    bool operator==(const DialReading&) const = default;
};

} // namespace tolvar
