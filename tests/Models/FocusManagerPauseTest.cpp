#include "Models/FocusManagerFixture.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class FocusManagerPause : public FocusManagerFixture {
protected:
    void pauseFor(Seconds seconds) {
        manager->pauseSession();
        clock.advance(seconds);
        manager->resumeSession();
    }
};

TEST_F(FocusManagerPause, LiftsTheBlocksBehindAHapticAndSaves) {
    start();
    clock.advance(minute);
    manager->pauseSession();
    EXPECT_EQ(journal.take(), texts({u"haptic levelChange", u"unwatch applications",
                                     u"unhide Slack", u"unwatch tabs", u"write currentSession"}));
    EXPECT_TRUE(current().isPaused);
    EXPECT_EQ(current().pausedAt, HandClock::start + minute);
    EXPECT_EQ(current().pauseCount, 1);
    EXPECT_EQ(storedSession(), current());
}

TEST_F(FocusManagerPause, LeavesApplicationsAloneMeanwhile) {
    start();
    manager->pauseSession();
    desk.workspace.activate(slack);
    clock.advance(60);
    EXPECT_FALSE(isSlackHidden());
}

TEST_F(FocusManagerPause, KeepsTheTickRunningAndTheClockStanding) {
    start();
    clock.advance(minute);
    manager->pauseSession();
    int changes = 0;
    QObject::connect(manager.get(), &FocusManager::changed, [&] { ++changes; });
    clock.advance(30);
    EXPECT_EQ(changes, 30);
    EXPECT_EQ(clock.runningTimers(), 1u);
    EXPECT_EQ(current().remainingTime(clock.now()), 24 * minute);
    EXPECT_EQ(current().pauseRemainingSeconds(clock.now()), 90);
}

TEST_F(FocusManagerPause, BlocksAgainWhenResumed) {
    start();
    manager->pauseSession();
    clock.advance(45);
    journal.take();
    manager->resumeSession();
    EXPECT_EQ(journal.take(), texts({u"haptic levelChange", u"watch applications", u"hide Slack",
                                     u"watch tabs", u"write currentSession"}));
    EXPECT_FALSE(current().isPaused);
    EXPECT_FALSE(current().pausedAt);
    EXPECT_EQ(current().totalPausedTime, 45);
    EXPECT_EQ(storedSession(), current());
}

TEST_F(FocusManagerPause, AddsUpTheTimeOfBothPauses) {
    start();
    pauseFor(45);
    clock.advance(minute);
    pauseFor(30);
    EXPECT_EQ(current().totalPausedTime, 75);
    EXPECT_EQ(current().elapsedFocusTime(clock.now()), minute);
}

TEST_F(FocusManagerPause, LeavesThePlannedEndWhereItWas) {
    start();
    pauseFor(45);
    EXPECT_EQ(current().endTime, HandClock::start + 25 * minute);
}

TEST_F(FocusManagerPause, IsGrantedTwiceASession) {
    start();
    pauseFor(1);
    pauseFor(1);
    journal.take();
    const auto before = current();
    manager->pauseSession();
    EXPECT_EQ(journal.take(), Texts());
    EXPECT_EQ(current(), before);
    EXPECT_EQ(current().pauseCount, 2);
}

TEST_F(FocusManagerPause, IsGrantedTwiceToASessionThatNeverCounted) {
    auto session = plan();
    session.pauseCount.reset();
    start(session);
    pauseFor(1);
    EXPECT_EQ(current().pauseCount, 1);
    pauseFor(1);
    manager->pauseSession();
    EXPECT_EQ(current().pauseCount, 2);
    EXPECT_FALSE(current().isPaused);
}

TEST_F(FocusManagerPause, IsGrantedTwiceAgainToTheNextSession) {
    start();
    pauseFor(1);
    pauseFor(1);
    manager->stopSession();
    start(lastFiled().restarted(u"Again"_s));
    manager->pauseSession();
    EXPECT_TRUE(current().isPaused);
    EXPECT_EQ(current().pauseCount, 1);
}

TEST_F(FocusManagerPause, IgnoresASecondPauseAndASecondResume) {
    start();
    manager->resumeSession();
    EXPECT_EQ(journal.take(), Texts());
    manager->pauseSession();
    journal.take();
    manager->pauseSession();
    EXPECT_EQ(journal.take(), Texts());
    EXPECT_EQ(current().pauseCount, 1);
}

TEST_F(FocusManagerPause, EndsByItselfAfterTwoMinutes) {
    start();
    manager->pauseSession();
    clock.advance(119);
    EXPECT_TRUE(current().isPaused);
    EXPECT_FALSE(isSlackHidden());
    journal.take();
    clock.advance(1);
    EXPECT_EQ(journal.take(), texts({u"haptic levelChange", u"watch applications", u"hide Slack",
                                     u"watch tabs", u"write currentSession"}));
    EXPECT_FALSE(current().isPaused);
    EXPECT_EQ(current().totalPausedTime, 120);
}

TEST_F(FocusManagerPause, CountsAtMostTwoMinutesWhenNoTickEndedIt) {
    start();
    manager->pauseSession();
    clock.suspend(600);
    manager->resumeSession();
    EXPECT_EQ(current().totalPausedTime, 120);
    EXPECT_EQ(current().elapsedFocusTime(clock.now()), 480);
}

TEST_F(FocusManagerPause, KeepsOneTickHoweverOftenItEnds) {
    start();
    pauseFor(1);
    pauseFor(1);
    EXPECT_EQ(clock.runningTimers(), 3u) << "one tick and one poll per blocker";
}

TEST_F(FocusManagerPause, TicksAWholeSecondAfterItEnded) {
    start();
    manager->pauseSession();
    clock.advance(0.6);
    manager->resumeSession();
    int changes = 0;
    QObject::connect(manager.get(), &FocusManager::changed, [&] { ++changes; });
    clock.advance(0.9);
    EXPECT_EQ(changes, 0);
    clock.advance(0.1);
    EXPECT_EQ(changes, 1);
}

TEST_F(FocusManagerPause, MayBeExtendedWithoutEndingIt) {
    start();
    manager->pauseSession();
    journal.take();
    manager->extendSession(300);
    EXPECT_EQ(journal.take(), texts({u"write currentSession"}));
    EXPECT_TRUE(current().isPaused);
    EXPECT_EQ(current().duration, 1800);
    EXPECT_EQ(current().endTime, HandClock::start + 1800);
    EXPECT_FALSE(isSlackHidden());
}

TEST_F(FocusManagerPause, IsNoFocusWhenTheSessionIsStoppedDuringIt) {
    start();
    clock.advance(10 * minute);
    manager->pauseSession();
    clock.advance(30);
    journal.take();
    manager->stopSession();
    EXPECT_EQ(journal.take(), texts({u"write -currentSession, sessionHistory"}));
    EXPECT_EQ(lastFiled().focusedTime, 10 * minute);
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::endedEarly);
    EXPECT_TRUE(lastFiled().isPaused) << "it stays marked as paused";
    EXPECT_EQ(lastFiled().pausedAt, HandClock::start + 10 * minute);
    EXPECT_EQ(lastFiled().totalPausedTime, 0);
    EXPECT_FALSE(lastFiled().isActive);
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(FocusManagerPause, CompletesTheSessionWhenItOutlastsTheRemainingTime) {
    start();
    clock.advance(25 * minute - 10);
    manager->pauseSession();
    clock.advance(119);
    EXPECT_TRUE(manager->currentSession());
    clock.suspend(11);
    journal.take();
    clock.advance(1);
    EXPECT_FALSE(manager->currentSession());
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
    EXPECT_TRUE(lastFiled().isPaused);
    EXPECT_EQ(lastFiled().focusedTime, 25 * minute);
    EXPECT_EQ(journal.take(), texts({u"write -currentSession, sessionHistory", u"play sessionEnd",
                                     u"notify Write report \u2014 25m of focus."}));
}

} // namespace
} // namespace tolvar::test
