#pragma once

#include "Models/AppSettings.h"
#include "Models/CategoryStore.h"
#include "Models/FocusManager.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Platform/Null/NullBlockAlert.h"
#include "Platform/Null/NullBrowserChannel.h"
#include "Platform/Null/NullHapticPerformer.h"
#include "Platform/Null/NullNotificationCenter.h"
#include "Platform/Null/NullWorkspace.h"

#include <optional>

namespace tolvar::gallery {

/// Time that stands still until it is told otherwise.
class StillTime final : public Clock, public TimerService {
public:
    Date now() const override { return m_now; }
    std::unique_ptr<Timer> repeat(std::chrono::milliseconds, Callback) override {
        return std::make_unique<Timer>();
    }
    std::unique_ptr<Timer> once(std::chrono::milliseconds, Callback) override {
        return std::make_unique<Timer>();
    }
    void pass(Seconds seconds) { m_now = m_now + seconds; }
    void set(Date now) { m_now = now; }

private:
    Date m_now{};
};

/// A session to be seen, and the moment to see it at.
struct SessionMoment {
    QString goal = QStringLiteral("Write the second chapter");
    Seconds duration = 25 * 60;
    Seconds elapsed = 0;
    /// Before the pause that lasts, where one does.
    int pausesTaken = 0;
    /// How long the session has been paused; negative while it runs.
    Seconds pausedFor = -1;
};

/// What is kept from earlier days, and the moment to see it at.
struct KeptRecords {
    std::vector<FocusSession> history = {};
    std::vector<FocusPreset> presets = {};
    Date now = {};
};

/// An engine with nothing around it, at a moment of its own.
struct StillDesk {
    /// At `moment` of a session, where there is one.
    explicit StillDesk(const std::optional<SessionMoment>& moment = std::nullopt,
                       const KeptRecords& records = {})
        : kept(preferences, records) {
        time.set(records.now);
        preferences.registerDefaults(AppSettings::defaults());
        if (moment)
            play(*moment);
    }

    void play(const SessionMoment& moment) {
        FocusSession session;
        session.goal = moment.goal;
        session.duration = moment.duration;
        session.pauseCount = moment.pausesTaken;
        manager.startSession(session);
        time.pass(moment.elapsed);
        if (moment.pausedFor < 0)
            return;
        manager.pauseSession();
        time.pass(moment.pausedFor);
    }

    /// Stores records before anybody loads them.
    struct Kept {
        Kept(Preferences& preferences, const KeptRecords& records) {
            SessionStore store(preferences);
            store.saveHistory(records.history);
            store.savePresets(records.presets);
        }
    };

    StillTime time;
    MemoryPreferences preferences;
    Kept kept;
    NullWorkspace workspace;
    NullBrowserChannel browsers;
    NullBlockAlert alert;
    NullNotificationCenter notifications;
    NullHapticPerformer haptics;
    SilentInterfaceSound sound;
    FocusManager manager{{.preferences = preferences,
                          .clock = time,
                          .timers = time,
                          .workspace = workspace,
                          .browsers = browsers,
                          .alert = alert,
                          .notifications = notifications,
                          .haptics = haptics,
                          .sound = sound,
                          .bundle = {},
                          .processIdentifier = 0}};
    CategoryStore categories{preferences};
};

} // namespace tolvar::gallery
