#pragma once

#include <QString>

#include <optional>

namespace tolvar {

/// Why the remote control refused to do something.
struct RemoteError {
    enum class Kind {
        noSession,
        sessionRunning,
        alreadyPaused,
        notPaused,
        noPausesLeft,
        emptyGoal,
        invalidDuration,
        unknownCategory,
        unknownPreset,
        ambiguousName,
        invalidApplication,
        invalidWebsite,
        unknownSession,
    };

    Kind kind;
    /// One line for people, without a full stop.
    QString message;

    bool operator==(const RemoteError&) const = default;
};

/// The error's name on the bus.
QString remoteErrorName(RemoteError::Kind kind);
/// The kind with this name, or nothing when it is no error of the remote control.
std::optional<RemoteError::Kind> remoteErrorKind(const QString& name);

} // namespace tolvar
