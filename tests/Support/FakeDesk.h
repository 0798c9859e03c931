#pragma once

#include "Models/AppSettings.h"
#include "Models/FocusManager.h"
#include "Support/FakeBrowserChannel.h"
#include "Support/FakeNotificationCenter.h"
#include "Support/FakeWorkspace.h"
#include "Support/HandClock.h"
#include "Support/RecordingAlert.h"
#include "Support/RecordingHaptics.h"
#include "Support/RecordingPreferences.h"
#include "Support/RecordingSound.h"

namespace tolvar::test {

/// Everything around a `FocusManager`, with factory settings, one clock and one journal.
struct FakeDesk {
    Journal journal;
    HandClock clock;
    RecordingPreferences preferences{journal};
    FakeWorkspace workspace{journal};
    FakeBrowserChannel browsers{journal};
    RecordingAlert alert{journal};
    FakeNotificationCenter notifications{journal};
    RecordingHaptics haptics{journal};
    RecordingSound sound{journal};
    BundleInfo bundle{.identifier = QStringLiteral("app.tolvar.Tolvar"),
                      .name = QStringLiteral("Tolvar"),
                      .shortVersion = QStringLiteral("0.1.0"),
                      .updateFeedUrl = {},
                      .resourcesPath = {},
                      .executablePath = {},
                      .browserHostPath = {}};
    static constexpr qint64 processIdentifier = 42;

    FakeDesk() { preferences.registerDefaults(AppSettings::defaults()); }

    /// The program is killed: nothing it does from now on, up to the destruction of its objects,
    /// has an effect that lasts.
    void killProgram() {
        workspace.killProgram();
        preferences.killProgram();
    }
    /// A fresh run may begin; the killed one's objects are gone.
    void restartProgram() {
        workspace.restartProgram();
        preferences.restartProgram();
    }

    FocusManager::Environment environment() {
        return {.preferences = preferences,
                .clock = clock,
                .timers = clock,
                .workspace = workspace,
                .browsers = browsers,
                .alert = alert,
                .notifications = notifications,
                .haptics = haptics,
                .sound = sound,
                .bundle = bundle,
                .processIdentifier = processIdentifier};
    }
};

} // namespace tolvar::test
