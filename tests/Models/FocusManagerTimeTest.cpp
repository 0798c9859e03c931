#include "Models/FocusManagerFixture.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

/// What happens when the wall clock does not simply run.
class FocusManagerTime : public FocusManagerFixture {};

TEST_F(FocusManagerTime, LengthensASessionWhoseClockIsSetBack) {
    start();
    clock.advance(10 * minute);
    clock.setWallClock(clock.now() - 60 * minute);
    EXPECT_EQ(current().elapsedFocusTime(clock.now()), 0);
    EXPECT_EQ(current().remainingTime(clock.now()), 25 * minute);
    clock.advance(75 * minute - 1);
    EXPECT_TRUE(manager->currentSession());
    EXPECT_TRUE(isSlackHidden());
    clock.advance(1);
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
    EXPECT_EQ(lastFiled().focusedTime, 25 * minute);
    EXPECT_EQ(lastFiled().endTime, HandClock::start + 25 * minute);
}

TEST_F(FocusManagerTime, FilesNoFocusWhenStoppedBeforeItsOwnStart) {
    start();
    clock.advance(10 * minute);
    clock.setWallClock(HandClock::start - 60 * minute);
    manager->stopSession();
    EXPECT_EQ(lastFiled().focusedTime, 0);
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::endedEarly);
    EXPECT_LT(lastFiled().endTime, lastFiled().startTime);
    EXPECT_EQ(storedHistory(), manager->sessionHistory());
}

TEST_F(FocusManagerTime, CompletesAtTheNextTickWhenTheClockIsSetForwardADay) {
    start();
    clock.advance(minute);
    clock.setWallClock(clock.now() + 24 * 60 * minute);
    EXPECT_TRUE(manager->currentSession());
    clock.advance(1);
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
    EXPECT_EQ(lastFiled().focusedTime, 25 * minute) << "never more than planned";
    EXPECT_EQ(desk.notifications.shown.size(), 1u);
}

TEST_F(FocusManagerTime, CompletesAtTheFirstTickAfterANightInSuspend) {
    start();
    clock.advance(minute);
    clock.suspend(8 * 60 * minute);
    clock.advance(1);
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
    EXPECT_FALSE(isSlackHidden());
}

TEST_F(FocusManagerTime, GoesOnAfterASuspendThatEndsBeforeTheSession) {
    start();
    clock.suspend(20 * minute);
    clock.advance(1);
    EXPECT_EQ(current().remainingTime(clock.now()), 5 * minute - 1);
    EXPECT_TRUE(isSlackHidden());
}

TEST_F(FocusManagerTime, AddsNothingForAPauseDuringWhichTheClockIsSetBack) {
    start();
    clock.advance(10 * minute);
    manager->pauseSession();
    clock.setWallClock(clock.now() - 60 * minute);
    clock.advance(30);
    EXPECT_TRUE(current().isPaused);
    EXPECT_EQ(current().pauseRemainingSeconds(clock.now()), 120);
    manager->resumeSession();
    EXPECT_EQ(current().totalPausedTime, 0);
    EXPECT_TRUE(isSlackHidden());
}

TEST_F(FocusManagerTime, EndsAPauseWhenTheClockPassesItsEndThoughItWasSetBack) {
    start();
    manager->pauseSession();
    clock.setWallClock(clock.now() - 10);
    clock.advance(129);
    EXPECT_TRUE(current().isPaused);
    clock.advance(1);
    EXPECT_FALSE(current().isPaused);
    EXPECT_EQ(current().totalPausedTime, 120);
}

TEST_F(FocusManagerTime, EndsAPauseAtTheFirstTickAfterASuspend) {
    start();
    clock.advance(minute);
    manager->pauseSession();
    clock.suspend(10 * minute);
    clock.advance(1);
    EXPECT_FALSE(current().isPaused);
    EXPECT_EQ(current().totalPausedTime, 120);
    EXPECT_EQ(current().elapsedFocusTime(clock.now()), 9 * minute + 1)
        << "past its end it is focus";
    EXPECT_TRUE(isSlackHidden());
}

TEST_F(FocusManagerTime, CompletesRatherThanResumesWhenASuspendOutlastsAPausedSession) {
    start();
    manager->pauseSession();
    clock.suspend(60 * minute);
    journal.take();
    clock.advance(1);
    EXPECT_EQ(journal.take(), texts({u"write -currentSession, sessionHistory", u"play sessionEnd",
                                     u"notify Write report \u2014 25m of focus."}));
    EXPECT_EQ(lastFiled().totalPausedTime, 0) << "the pause was never finished";
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
}

TEST_F(FocusManagerTime, TakesUpASessionFromTheFutureAndWaitsForIt) {
    start();
    manager.reset();
    clock.setWallClock(HandClock::start - 24 * 60 * minute);
    manager = makeManager();
    clock.advance(minute);
    EXPECT_EQ(current().remainingTime(clock.now()), 25 * minute);
    EXPECT_TRUE(isSlackHidden());
}

TEST_F(FocusManagerTime, ResumesAndStopsTheSameWayWhateverTheTickSaw) {
    start();
    manager->pauseSession();
    clock.suspend(119.5);
    manager->resumeSession();
    EXPECT_EQ(current().totalPausedTime, 119.5);
    clock.suspend(25 * minute);
    manager->stopSession();
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
}

} // namespace
} // namespace tolvar::test
