#pragma once

#include "Platform/Interfaces/NotificationCenter.h"
#include "Platform/Interfaces/Preferences.h"
#include "Sound/InterfaceSound.h"

namespace tolvar {

struct FocusSession;

/// Tells the user through the desktop's notification service that a session is complete. What goes
/// wrong is written to standard output, one line each, and has no other consequence; answers may
/// arrive after this object is gone.
class CompletionNotification {
public:
    /// What it needs; all outlive it.
    struct Environment {
        NotificationCenter& notifications;
        const InterfaceSound& sound;
        const Preferences& preferences;
        /// Whether this program runs as a proper application; otherwise nothing is asked or shown.
        bool isProperApplication = false;
    };

    explicit CompletionNotification(const Environment& environment)
        : m_environment(environment) {}

    void requestNotificationPermission() const;
    /// `session` as it was before it ended.
    void showCompletionNotification(const FocusSession& session) const;

private:
    NotificationSound completionNotificationSound() const;

    Environment m_environment;
};

/// "Report — 30m of focus." or, without a goal, "You focused for 30m.": the planned length,
/// extensions included.
QString completionNotificationBody(const FocusSession& session);

} // namespace tolvar
