#pragma once

#include "Models/CompletionNotification.h"
#include "Models/FocusPreset.h"
#include "Models/FocusSession.h"
#include "Models/SessionStore.h"
#include "Platform/Interfaces/BlockAlert.h"
#include "Platform/Interfaces/BrowserChannel.h"
#include "Platform/Interfaces/BundleInfo.h"
#include "Platform/Interfaces/Clock.h"
#include "Platform/Interfaces/HapticPerformer.h"
#include "Platform/Interfaces/NotificationCenter.h"
#include "Platform/Interfaces/Preferences.h"
#include "Platform/Interfaces/TimerService.h"
#include "Platform/Interfaces/Workspace.h"
#include "Services/AppBlockerService.h"
#include "Services/WebsiteBlockerService.h"
#include "Sound/InterfaceSound.h"

#include <QObject>

#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

namespace tolvar {

/// The engine of focus sessions: starts, pauses, extends, ends and files the one current session,
/// drives the blockers, and keeps sessions, presets and history in the preferences.
///
/// Operations on a session that do not apply (no session, no pauses left, ...) do nothing and write
/// nothing. Signals are sent when an operation is done and saved: slots may call any operation, and
/// may destroy the manager.
class FocusManager final : public QObject {
    Q_OBJECT

public:
    /// What the engine needs from the desktop and from this program; all outlive the manager.
    struct Environment {
        Preferences& preferences;
        Clock& clock;
        TimerService& timers;
        Workspace& workspace;
        BrowserChannel& browsers;
        BlockAlert& alert;
        NotificationCenter& notifications;
        HapticPerformer& haptics;
        InterfaceSound& sound;
        BundleInfo bundle;
        /// Ours: never hidden.
        qint64 processIdentifier = 0;
    };

    /// Asks for permission to notify (when the bundle has an identifier) and loads the saved data.
    /// A session that was running is taken up again, with its blocks unless it is paused; its
    /// first tick, one second later, ends it if its time ran out meanwhile. Windows that an earlier
    /// run left hidden and no session blocks now are shown.
    explicit FocusManager(const Environment& environment, QObject* parent = nullptr);
    /// Saves nothing: a running session stands saved already. Shows what is hidden.
    ~FocusManager() override;

    /// The session now running or paused. A stored one that is neither is kept too: it blocks
    /// nothing, does not tick, and is discarded by `stopSession`.
    const std::optional<FocusSession>& currentSession() const { return m_currentSession; }
    /// The current session while it runs or is paused; null otherwise.
    const FocusSession* activeSession() const;
    SessionStatus status() const;
    /// Oldest first.
    const std::vector<FocusPreset>& savedPresets() const { return m_savedPresets; }
    /// Ended sessions in the order they ended, oldest first.
    const std::vector<FocusSession>& sessionHistory() const { return m_sessionHistory; }
    const Clock& clock() const { return m_environment.clock; }

    /// Starts the session now and makes it the current one. A session that is already running is
    /// replaced without being filed: offer this only when there is none.
    void startSession(FocusSession session);
    /// At most `FocusSession::maximumPauseCount` times per session. Blocks are lifted meanwhile.
    void pauseSession();
    void resumeSession();
    /// Ends the session and files it: completed when no time remains, else ended early.
    void stopSession();
    /// Lengthens the session, paused or not.
    void extendSession(Seconds seconds);

    /// Appends a preset of the session's plan, unless one was saved from it already.
    void savePreset(const FocusSession& session);
    bool isSessionSaved(const FocusSession& session) const;
    /// Removes the preset and every other one saved from the same session.
    void deletePreset(const FocusPreset& preset);
    /// How many presets use the category.
    int presetCount(const QString& categoryId) const;
    void deleteSession(const FocusSession& session);
    void clearHistory();

Q_SIGNALS:
    /// Something that observers show may have changed: emitted after every change of a published
    /// value, behind its own signal, and once a second while a session runs or is paused.
    void changed();
    void currentSessionChanged();
    void savedPresetsChanged();
    void sessionHistoryChanged();

private:
    using Signal = void (FocusManager::*)();

    Date now() const { return m_environment.clock.now(); }
    void performHapticTick();
    void announce(std::initializer_list<Signal> changes);
    void saveCurrentSession() { m_store.saveCurrentSession(m_currentSession); }
    void loadSavedData();

    void applyBlocks(const FocusSession& session);
    void removeBlocks();
    void startTimer();
    void updateSession();
    void endSession(Date moment);
    void completeSession(Date moment);

    Environment m_environment;
    SessionStore m_store;
    CompletionNotification m_completionNotification;
    std::optional<FocusSession> m_currentSession;
    std::vector<FocusPreset> m_savedPresets;
    std::vector<FocusSession> m_sessionHistory;
    std::unique_ptr<Timer> m_timer;
    AppBlockerService m_appBlocker;
    WebsiteBlockerService m_websiteBlocker;
};

} // namespace tolvar
