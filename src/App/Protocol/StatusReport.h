#pragma once

#include "Extensions/Date.h"

#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace tolvar {

/// What a session looks like at one moment. Without a session all but `state` is empty.
struct StatusReport {
    enum class State {
        /// Tolvar does not run; never sent by a running one.
        off,
        ready,
        focusing,
        paused,
    };

    State state = State::off;
    QString goal;
    Seconds duration = 0;
    Seconds remaining = 0;
    Seconds elapsed = 0;
    /// Whole seconds until a paused session goes on by itself; 0 unless paused.
    int pauseRemaining = 0;
    int pausesLeft = 0;
    QStringList blockedApps;
    QStringList blockedWebsites;

    bool operator==(const StatusReport&) const = default;
};

/// "off", "ready", "focusing" or "paused".
QString stateName(StatusReport::State state);

/// The report as properties of the remote control by their names, and back. A property that is
/// missing or of another type reads as empty, an unknown state as `off`.
QVariantMap toProperties(const StatusReport& report);
StatusReport statusFromProperties(const QVariantMap& properties);

} // namespace tolvar
