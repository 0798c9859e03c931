#include "Models/FocusManagerFixture.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class FocusManagerPersistence : public FocusManagerFixture {};

TEST_F(FocusManagerPersistence, TakesUpARunningSessionWithItsBlocks) {
    start();
    const auto before = current();
    clock.advance(minute);
    quitAndReturn();
    EXPECT_EQ(journal.take(),
              texts({u"ask for permission", u"watch applications", u"hide Slack", u"watch tabs"}))
        << "and writes nothing";
    EXPECT_EQ(current(), before);
    EXPECT_EQ(clock.runningTimers(), 3u);
    clock.advance(24 * minute);
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
    EXPECT_EQ(lastFiled().focusedTime, 25 * minute);
}

TEST_F(FocusManagerPersistence, CountsTheTimeWhileTheProgramDidNotRunAsFocus) {
    start();
    manager.reset();
    clock.suspend(10 * minute);
    manager = makeManager();
    EXPECT_EQ(current().elapsedFocusTime(clock.now()), 10 * minute);
}

TEST_F(FocusManagerPersistence, TakesUpAPausedSessionWithoutBlocksUntilItResumes) {
    start();
    manager->pauseSession();
    clock.advance(30);
    quitAndReturn();
    EXPECT_EQ(journal.take(), texts({u"ask for permission"}));
    EXPECT_TRUE(current().isPaused);
    EXPECT_FALSE(isSlackHidden());
    EXPECT_EQ(clock.runningTimers(), 1u);
    clock.advance(10);
    manager->resumeSession();
    EXPECT_TRUE(isSlackHidden());
    EXPECT_EQ(current().totalPausedTime, 40);
}

TEST_F(FocusManagerPersistence, EndsAtTheFirstTickAPauseThatRanOutMeanwhile) {
    start();
    manager->pauseSession();
    manager.reset();
    clock.suspend(10 * minute);
    manager = makeManager();
    EXPECT_TRUE(current().isPaused);
    clock.advance(1);
    EXPECT_FALSE(current().isPaused);
    EXPECT_EQ(current().totalPausedTime, 120);
    EXPECT_TRUE(isSlackHidden());
}

TEST_F(FocusManagerPersistence, CompletesAtTheFirstTickASessionWhoseTimeRanOutMeanwhile) {
    start();
    manager.reset();
    clock.suspend(60 * minute);
    manager = makeManager();
    EXPECT_TRUE(manager->currentSession());
    EXPECT_TRUE(isSlackHidden()) << "its blocks are back until then";
    journal.take();
    clock.advance(0.999);
    EXPECT_EQ(journal.take(), Texts());
    clock.advance(0.001);
    EXPECT_EQ(journal.take(), texts({u"unwatch applications", u"unhide Slack", u"unwatch tabs",
                                     u"write -currentSession, sessionHistory", u"play sessionEnd",
                                     u"notify Write report \u2014 25m of focus."}));
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
    EXPECT_EQ(lastFiled().focusedTime, 25 * minute);
    EXPECT_EQ(lastFiled().endTime, clock.now());
}

TEST_F(FocusManagerPersistence, KeepsApplicationsHiddenAcrossAKillWhileTheSessionRuns) {
    start();
    killAndReturn();
    EXPECT_TRUE(isSlackHidden());
    EXPECT_EQ(journal.take(), texts({u"ask for permission", u"watch applications", u"watch tabs"}));
    manager->stopSession();
    EXPECT_FALSE(isSlackHidden());
}

TEST_F(FocusManagerPersistence, ShowsAfterAKillWhatNoBlockConcernsAnyMore) {
    start();
    auto second = plan();
    second.blockedApps = {u"Zoom"_s};
    const auto zoom = desk.workspace.launch(u"Zoom"_s);
    manager->startSession(second);
    EXPECT_TRUE(isSlackHidden());
    killAndReturn();
    EXPECT_FALSE(isSlackHidden());
    EXPECT_TRUE(desk.workspace.isHidden(zoom));
}

TEST_F(FocusManagerPersistence, ShowsAfterAKillEverythingWhenNoSessionIsStored) {
    start();
    desk.preferences.remove(u"currentSession"_s);
    killAndReturn();
    EXPECT_EQ(journal.take(), texts({u"ask for permission", u"unhide Slack"}));
    EXPECT_FALSE(isSlackHidden());
}

TEST_F(FocusManagerPersistence, ShowsAfterAKillEverythingWhenTheStoredSessionIsPaused) {
    start();
    auto paused = current();
    paused.isPaused = true;
    paused.pausedAt = clock.now();
    store(paused);
    killAndReturn();
    EXPECT_FALSE(isSlackHidden());
    EXPECT_TRUE(current().isPaused);
}

TEST_F(FocusManagerPersistence, ShowsAfterAKillEverythingWhenTheStoredSessionIsUnreadable) {
    start();
    desk.preferences.setData(u"currentSession"_s, "{");
    killAndReturn();
    EXPECT_FALSE(isSlackHidden());
    EXPECT_FALSE(manager->currentSession());
}

TEST_F(FocusManagerPersistence, LeavesAnUnreadableSessionStoredUntilTheNextSave) {
    desk.preferences.setData(u"currentSession"_s, "{\"goal\":7}");
    quitAndReturn();
    EXPECT_FALSE(manager->currentSession());
    EXPECT_EQ(clock.runningTimers(), 0u);
    EXPECT_EQ(desk.preferences.data(u"currentSession"_s), "{\"goal\":7}");
    start();
    EXPECT_EQ(storedSession(), current());
}

TEST_F(FocusManagerPersistence, IgnoresAValueOfAnotherTypeUnderItsKeys) {
    for (const auto& key : {u"currentSession"_s, u"savedPresets"_s, u"sessionHistory"_s})
        desk.preferences.setText(key, u"[]"_s);
    quitAndReturn();
    EXPECT_FALSE(manager->currentSession());
    EXPECT_TRUE(manager->savedPresets().empty());
    EXPECT_TRUE(manager->sessionHistory().empty());
    EXPECT_EQ(journal.take(), texts({u"ask for permission"}));
}

TEST_F(FocusManagerPersistence, KeepsAStoredSessionThatNeverStartedAndDiscardsItWhenStopped) {
    const auto planned = plan();
    store(planned);
    quitAndReturn();
    EXPECT_EQ(current(), planned);
    EXPECT_EQ(clock.runningTimers(), 0u);
    EXPECT_FALSE(isSlackHidden());
    journal.take();

    manager->pauseSession();
    manager->resumeSession();
    manager->extendSession(300);
    EXPECT_EQ(journal.take(), Texts());
    EXPECT_EQ(current(), planned);

    manager->stopSession();
    EXPECT_EQ(journal.take(), texts({u"write -currentSession"}));
    EXPECT_FALSE(manager->currentSession());
    EXPECT_TRUE(manager->sessionHistory().empty());
}

TEST_F(FocusManagerPersistence, StartsOverAStoredSessionThatNeverStarted) {
    store(plan());
    quitAndReturn();
    const auto session = plan();
    manager->startSession(session);
    EXPECT_EQ(current().id, session.id);
    EXPECT_TRUE(isSlackHidden());
}

TEST_F(FocusManagerPersistence, RunsAStoredActiveSessionWithoutAStartUntilItIsStopped) {
    auto session = plan();
    session.isActive = true;
    store(session);
    quitAndReturn();
    clock.advance(60 * minute);
    EXPECT_EQ(current().remainingTime(clock.now()), 25 * minute);
    manager->stopSession();
    EXPECT_EQ(lastFiled().focusedTime, 0);
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::endedEarly);
}

TEST_F(FocusManagerPersistence, NeverEndsAStoredPauseThatHasNoBeginning) {
    auto session = plan();
    session.isActive = session.isPaused = true;
    session.startTime = clock.now();
    store(session);
    quitAndReturn();
    clock.advance(10 * minute);
    EXPECT_TRUE(current().isPaused);
    manager->resumeSession();
    EXPECT_EQ(current().totalPausedTime, 0);
    EXPECT_FALSE(current().isPaused);
}

TEST_F(FocusManagerPersistence, CarriesTheHistoryAcrossRuns) {
    for (int count = 0; count < 3; ++count) {
        start();
        clock.advance(minute);
        manager->stopSession();
    }
    const auto before = manager->sessionHistory();
    quitAndReturn();
    EXPECT_EQ(manager->sessionHistory(), before);
    EXPECT_EQ(journal.take(), texts({u"ask for permission"}));
}

TEST_F(FocusManagerPersistence, LosesAnUnreadableHistoryOnlyAtTheNextSave) {
    desk.preferences.setData(u"sessionHistory"_s, "[{}]");
    quitAndReturn();
    EXPECT_TRUE(manager->sessionHistory().empty());
    EXPECT_EQ(desk.preferences.data(u"sessionHistory"_s), "[{}]");
    start();
    manager->stopSession();
    EXPECT_EQ(storedHistory(), manager->sessionHistory());
    EXPECT_EQ(storedHistory().size(), 1u);
}

TEST_F(FocusManagerPersistence, RemovesTheStoredSessionWhenItCannotBeWritten) {
    start();
    manager->extendSession(std::numeric_limits<double>::infinity());
    EXPECT_EQ(journal.take(), texts({u"write -currentSession"}));
    EXPECT_TRUE(manager->currentSession());
}

TEST_F(FocusManagerPersistence, LeavesTheStoredHistoryWhenItCannotBeWritten) {
    start();
    clock.advance(minute);
    manager->stopSession();
    const auto stored = storedHistory();
    start();
    manager->extendSession(std::numeric_limits<double>::infinity());
    journal.take();
    manager->stopSession();
    EXPECT_EQ(journal.take().back(), u"write -currentSession"_s);
    EXPECT_EQ(storedHistory(), stored);
    EXPECT_EQ(manager->sessionHistory().size(), 2u);
}

/// A program that is killed at a given step of an operation: that step and all behind it are lost.
class FocusManagerKilledAtAStep : public FocusManagerFixture {
protected:
    /// Runs `operation` and kills the program at its step number `fatalStep`, then starts it
    /// again. False when the operation has no such step.
    template<typename Operation>
    bool killAtStep(int fatalStep, const Operation& operation) {
        int step = 0;
        journal.recorded = [&] {
            if (step++ == fatalStep)
                desk.killProgram();
        };
        operation();
        journal.recorded = nullptr;
        killAndReturn();
        return step > fatalStep;
    }

    /// In how many places the session is.
    int places(const QUuid& id) const {
        int count = manager->currentSession() && current().id == id ? 1 : 0;
        for (const auto& filed : manager->sessionHistory())
            count += filed.id == id ? 1 : 0;
        return count;
    }

    void expectHiddenExactlyWhileBlocked() {
        const bool isBlocking = manager->currentSession() && !current().isPaused;
        EXPECT_EQ(isSlackHidden(), isBlocking);
        if (manager->currentSession())
            manager->stopSession();
        EXPECT_FALSE(isSlackHidden());
    }
};

TEST_F(FocusManagerKilledAtAStep, HidesNothingForASessionWhoseStartWasLost) {
    bool isFatal = true;
    for (int step = 0; isFatal; ++step) {
        isFatal = killAtStep(step, [&] { manager->startSession(plan()); });
        EXPECT_EQ(manager->currentSession().has_value(), !isFatal) << "killed at step " << step;
        expectHiddenExactlyWhileBlocked();
    }
}

TEST_F(FocusManagerKilledAtAStep, KeepsAStoppedSessionInExactlyOnePlace) {
    bool isFatal = true;
    for (int step = 0; isFatal; ++step) {
        start();
        const auto id = current().id;
        isFatal = killAtStep(step, [&] { manager->stopSession(); });
        EXPECT_EQ(places(id), 1) << "killed at step " << step;
        expectHiddenExactlyWhileBlocked();
        EXPECT_EQ(places(id), 1) << "killed at step " << step;
    }
}

TEST_F(FocusManagerKilledAtAStep, KeepsACompletedSessionInExactlyOnePlace) {
    bool isFatal = true;
    for (int step = 0; isFatal; ++step) {
        start();
        const auto id = current().id;
        clock.advance(25 * minute - 1);
        isFatal = killAtStep(step, [&] { clock.advance(1); });
        EXPECT_EQ(places(id), 1) << "killed at step " << step;
        clock.advance(1);
        EXPECT_FALSE(manager->currentSession());
        EXPECT_EQ(places(id), 1) << "killed at step " << step;
        EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
        expectHiddenExactlyWhileBlocked();
    }
}

TEST_F(FocusManagerKilledAtAStep, HidesExactlyWhatTheStoredStateOfAPauseSays) {
    bool isFatal = true;
    for (int step = 0; isFatal; ++step) {
        start();
        isFatal = killAtStep(step, [&] { manager->pauseSession(); });
        EXPECT_EQ(current().isPaused, !isFatal) << "killed at step " << step;
        expectHiddenExactlyWhileBlocked();
    }
}

TEST_F(FocusManagerKilledAtAStep, HidesExactlyWhatTheStoredStateOfAResumptionSays) {
    bool isFatal = true;
    for (int step = 0; isFatal; ++step) {
        start();
        manager->pauseSession();
        isFatal = killAtStep(step, [&] { manager->resumeSession(); });
        EXPECT_EQ(current().isPaused, isFatal) << "killed at step " << step;
        expectHiddenExactlyWhileBlocked();
    }
}

} // namespace
} // namespace tolvar::test
