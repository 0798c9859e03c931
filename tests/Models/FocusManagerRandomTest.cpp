#include "Models/FocusManagerFixture.h"

#include <map>
#include <random>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

/// A life of random operations, random clocks and random deaths of the program, the same each time
/// for the same seed, with the rules that hold after each step of it.
class FocusManagerRandom : public FocusManagerFixture,
                           public testing::WithParamInterface<unsigned> {
protected:
    FocusManagerRandom() { desk.sound.loaded = {InterfaceSound::Sound::sessionEnd}; }

    void doSomething() {
        switch (number(0, 15)) {
        case 0:
        case 1:
            startSomething();
            break;
        case 2:
            manager->stopSession();
            break;
        case 3:
        case 4:
            manager->pauseSession();
            break;
        case 5:
            manager->resumeSession();
            break;
        case 6:
            manager->extendSession(number(1, 900));
            break;
        case 7:
        case 8:
            clock.advance(number(0, 200));
            break;
        case 9:
            clock.advance(number(0, 3000) / 1000.0);
            break;
        case 10:
            clock.suspend(number(0, 3600));
            break;
        case 11:
            clock.setWallClock(clock.now() + number(-7200, 7200));
            break;
        case 12:
            killAndReturn(number(0, 600));
            break;
        case 13:
            quitAndReturn();
            break;
        case 14:
            useTheDesktop();
            break;
        case 15:
            tidyUp();
            break;
        }
    }

    void expectEverySessionInExactlyOnePlace() {
        std::map<QUuid, int> places;
        for (const auto& filed : manager->sessionHistory())
            ++places[filed.id];
        if (manager->currentSession())
            ++places[current().id];
        for (const auto& id : m_kept)
            EXPECT_EQ(places[id], 1) << id.toString().toStdString();
        EXPECT_EQ(places.size(), m_kept.size());
    }

    void expectStoredAsHeld() const {
        EXPECT_EQ(storedSession(), manager->currentSession());
        EXPECT_EQ(storedHistory(), manager->sessionHistory());
        EXPECT_EQ(storedPresets(), manager->savedPresets());
    }

    void expectSoundRecords() const {
        if (const auto& session = manager->currentSession()) {
            EXPECT_TRUE(session->isActive);
            EXPECT_EQ(session->isPaused, session->pausedAt.has_value());
            expectSoundTimes(*session);
        }
        for (const auto& filed : manager->sessionHistory()) {
            EXPECT_FALSE(filed.isActive);
            EXPECT_TRUE(filed.endTime && filed.outcome && filed.focusedTime);
            EXPECT_EQ(filed.outcome == SessionOutcome::completed,
                      filed.focusedTime == filed.duration);
            EXPECT_GE(filed.focusedTime, 0);
            EXPECT_LE(filed.focusedTime, filed.duration);
            expectSoundTimes(filed);
        }
    }

    void expectHiddenExactlyWhileBlocked() const {
        const bool isBlocking = manager->currentSession() && !current().isPaused;
        for (const auto& handle : {slack, zoom}) {
            const auto name = desk.workspace.application(handle)->localizedName;
            const bool isBlocked = isBlocking && current().blockedApps.front() == name;
            EXPECT_FALSE(isBlocked && !desk.workspace.isHidden(handle)) << name.toStdString();
            EXPECT_FALSE(!isBlocking && desk.workspace.isHiddenByProgram(handle))
                << name.toStdString();
        }
    }

    void expectNoTimerTooMany() const {
        const bool isBlocking = manager->currentSession() && !current().isPaused;
        const std::size_t expected = isBlocking ? 3 : manager->currentSession() ? 1 : 0;
        EXPECT_EQ(clock.runningTimers(), expected);
    }

private:
    int number(int least, int most) { return std::uniform_int_distribution(least, most)(m_chance); }

    void startSomething() {
        if (manager->currentSession() && number(0, 3) > 0)
            return;
        if (manager->currentSession())
            std::erase(m_kept, current().id);
        auto session = plan();
        session.duration = number(0, 1800);
        session.blockedApps = {number(0, 1) == 0 ? u"Slack"_s : u"Zoom"_s};
        m_kept.push_back(session.id);
        manager->startSession(session);
    }

    void useTheDesktop() {
        const auto& handle = number(0, 1) == 0 ? slack : zoom;
        switch (number(0, 2)) {
        case 0:
            desk.workspace.activate(handle);
            break;
        case 1:
            desk.workspace.hideByUser(handle);
            break;
        case 2:
            desk.workspace.activateUnnoticed(handle);
            clock.advance(2);
            break;
        }
        clock.advance(0);
    }

    void tidyUp() {
        const auto& history = manager->sessionHistory();
        if (history.empty())
            return;
        const auto& some = history[static_cast<std::size_t>(number(0, int(history.size()) - 1))];
        if (number(0, 1) == 0) {
            manager->savePreset(some);
        } else {
            std::erase(m_kept, some.id);
            manager->deleteSession(some);
        }
        if (number(0, 9) == 0 && !manager->savedPresets().empty())
            manager->deletePreset(manager->savedPresets().front());
    }

    static void expectSoundTimes(const FocusSession& session) {
        EXPECT_LE(session.pauseCount, FocusSession::maximumPauseCount);
        EXPECT_GE(session.totalPausedTime, 0);
        EXPECT_LE(session.totalPausedTime,
                  FocusSession::maximumPause * FocusSession::maximumPauseCount);
    }

    ApplicationHandle zoom = desk.workspace.launch(u"Zoom"_s);
    std::mt19937 m_chance{GetParam()};
    /// Sessions that were started and neither replaced nor deleted.
    std::vector<QUuid> m_kept;
};

TEST_P(FocusManagerRandom, LosesNoSessionAndLeavesNothingHidden) {
    for (int step = 0; step < 250 && !HasFailure(); ++step) {
        SCOPED_TRACE(step);
        doSomething();
        expectEverySessionInExactlyOnePlace();
        expectStoredAsHeld();
        expectSoundRecords();
        expectHiddenExactlyWhileBlocked();
        expectNoTimerTooMany();
    }
}

INSTANTIATE_TEST_SUITE_P(Lives, FocusManagerRandom, testing::Range(1u, 41u));

} // namespace
} // namespace tolvar::test
