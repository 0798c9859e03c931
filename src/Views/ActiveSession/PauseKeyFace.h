#pragma once

#include "Models/FocusSession.h"
#include "Views/Theme/Symbol.h"

#include <QString>

namespace tolvar {

/// What the pause key of the active session shows and does.
struct PauseKeyFace {
    enum class Action { pause, resume };

    /// What it is called, also in its tooltip: "Pause, 2 left", "No pauses left" or "Resume".
    QString name;
    Symbol symbol = Symbol::pause;
    Action action = Action::pause;
    /// A paused session can always be resumed.
    bool isEnabled = false;
    /// The pauses left, while it is pauses that the key offers: 0 to
    /// `FocusSession::maximumPauseCount`.
    int lamps = 0;

    static PauseKeyFace of(const FocusSession& session);

    bool operator==(const PauseKeyFace&) const = default;
};

} // namespace tolvar
