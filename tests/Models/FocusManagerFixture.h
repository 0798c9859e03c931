#pragma once

#include "Models/FocusManager.h"
#include "Models/RecordCoding.h"
#include "Support/FakeDesk.h"

#include <gtest/gtest.h>

#include <memory>

namespace tolvar::test {

/// A manager at a desk on which Slack runs and is blocked by the sessions that tests start.
class FocusManagerFixture : public testing::Test {
protected:
    static constexpr Seconds minute = 60;

    FakeDesk desk;
    Journal& journal = desk.journal;
    HandClock& clock = desk.clock;
    ApplicationHandle slack = desk.workspace.launch(QStringLiteral("Slack"));
    std::unique_ptr<FocusManager> manager = makeManager();

    FocusManagerFixture() { journal.take(); }

    std::unique_ptr<FocusManager> makeManager() {
        return std::make_unique<FocusManager>(desk.environment());
    }

    /// The program ends in the ordinary way and is started again.
    void quitAndReturn() {
        manager.reset();
        journal.take();
        manager = makeManager();
    }

    /// The program is killed where it stands and is started again `after` a while.
    void killAndReturn(Seconds after = 0) {
        desk.killProgram();
        manager.reset();
        desk.restartProgram();
        clock.suspend(after);
        journal.take();
        manager = makeManager();
    }

    /// 25 minutes of "Write report" without Slack and example.com.
    static FocusSession plan() {
        FocusSession session;
        session.goal = QStringLiteral("Write report");
        session.duration = 25 * minute;
        session.blockedApps = {QStringLiteral("Slack")};
        session.blockedWebsites = {QStringLiteral("example.com")};
        return session;
    }

    /// Starts the plan and forgets the lines of it.
    void start(const FocusSession& session = plan()) {
        manager->startSession(session);
        journal.take();
    }

    const FocusSession& current() const { return manager->currentSession().value(); }
    const FocusSession& lastFiled() const { return manager->sessionHistory().back(); }
    bool isSlackHidden() const { return desk.workspace.isHidden(slack); }

    std::optional<FocusSession> storedSession() const {
        const auto json = desk.preferences.data(QStringLiteral("currentSession"));
        return json ? RecordCoding::decodeSession(*json) : std::nullopt;
    }
    std::vector<FocusSession> storedHistory() const {
        const auto json = desk.preferences.data(QStringLiteral("sessionHistory"));
        return json ? RecordCoding::decodeSessions(*json).value() : std::vector<FocusSession>();
    }
    std::vector<FocusPreset> storedPresets() const {
        const auto json = desk.preferences.data(QStringLiteral("savedPresets"));
        return json ? RecordCoding::decodePresets(*json).value() : std::vector<FocusPreset>();
    }
    void store(const FocusSession& session) {
        desk.preferences.setData(QStringLiteral("currentSession"),
                                 RecordCoding::encode(session).value());
    }
    void store(const std::vector<FocusPreset>& presets) {
        desk.preferences.setData(QStringLiteral("savedPresets"),
                                 RecordCoding::encode(presets).value());
    }
};

} // namespace tolvar::test
