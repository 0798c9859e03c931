#include "Models/FocusSession.h"

#include "Support/HandClock.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using test::texts;

constexpr Date now = test::HandClock::start;

/// A session of 25 minutes that has run for the given time.
FocusSession running(Seconds elapsed) {
    FocusSession session;
    session.duration = 1500;
    session.startTime = now - elapsed;
    session.endTime = now - elapsed + 1500;
    session.isActive = true;
    return session;
}

/// The same, paused for the last `paused` of these seconds.
FocusSession paused(Seconds elapsed, Seconds pausedFor) {
    auto session = running(elapsed);
    session.isPaused = true;
    session.pausedAt = now - pausedFor;
    session.pauseCount = 1;
    return session;
}

TEST(FocusSession, CountsDownFromItsStart) {
    const auto session = running(600);
    EXPECT_EQ(session.remainingTime(now), 900);
    EXPECT_EQ(session.elapsedFocusTime(now), 600);
}

TEST(FocusSession, KeepsFractionsOfSeconds) {
    EXPECT_EQ(running(0.25).remainingTime(now), 1499.75);
    EXPECT_EQ(running(0.25).elapsedFocusTime(now), 0.25);
}

TEST(FocusSession, ReachesExactlyZeroWhenTheTimeIsUpAndStaysThere) {
    EXPECT_EQ(running(1500).remainingTime(now), 0);
    EXPECT_EQ(running(100'000).remainingTime(now), 0);
    EXPECT_EQ(running(100'000).elapsedFocusTime(now), 1500);
}

TEST(FocusSession, ReportsItsWholeDurationWhileItIsNotActive) {
    auto session = running(600);
    session.isActive = false;
    EXPECT_EQ(session.remainingTime(now), 1500);
    session.duration = -5;
    EXPECT_EQ(session.remainingTime(now), -5);
}

TEST(FocusSession, StillKnowsItsFocusTimeWhileItIsEnded) {
    auto session = running(600);
    session.isActive = false;
    EXPECT_EQ(session.elapsedFocusTime(now), 600);
}

TEST(FocusSession, HasAllItsTimeLeftBeforeItStarts) {
    auto session = running(600);
    session.startTime.reset();
    EXPECT_EQ(session.remainingTime(now), 1500);
    EXPECT_EQ(session.elapsedFocusTime(now), 0);
}

TEST(FocusSession, HasAllItsTimeLeftWhenItsStartLiesInTheFuture) {
    const auto session = running(-3600);
    EXPECT_EQ(session.remainingTime(now), 1500);
    EXPECT_EQ(session.elapsedFocusTime(now), 0);
}

TEST(FocusSession, TakesANegativeDurationForTheUpperBound) {
    auto session = running(600);
    session.duration = -60;
    EXPECT_EQ(session.elapsedFocusTime(now), -60);
    EXPECT_EQ(session.remainingTime(now), 0);
}

TEST(FocusSession, DoesNotCountFinishedPauses) {
    auto session = running(600);
    session.totalPausedTime = 150.5;
    EXPECT_EQ(session.elapsedFocusTime(now), 449.5);
    EXPECT_EQ(session.remainingTime(now), 1050.5);
}

TEST(FocusSession, NeverCountsBelowZeroWhenPausesOutweighIt) {
    auto session = running(60);
    session.totalPausedTime = 120;
    EXPECT_EQ(session.elapsedFocusTime(now), 0);
    EXPECT_EQ(session.remainingTime(now), 1500);
}

TEST(FocusSession, StandsStillDuringAPause) {
    const auto session = paused(630, 30);
    EXPECT_EQ(session.remainingTime(now), 900);
    EXPECT_EQ(session.remainingTime(now + 1), 900);
    EXPECT_EQ(session.remainingTime(now + 90), 900);
    EXPECT_EQ(session.elapsedFocusTime(now + 90), 600);
    EXPECT_EQ(session.pauseRemainingSeconds(now), 90);
}

TEST(FocusSession, RunsOnAfterTwoMinutesOfPause) {
    const auto session = paused(800, 200);
    EXPECT_EQ(session.elapsedFocusTime(now), 680);
    EXPECT_EQ(session.remainingTime(now), 820);
    EXPECT_EQ(session.remainingTime(now + 1), 819);
    EXPECT_EQ(session.pauseRemainingSeconds(now), 0);
}

TEST(FocusSession, SeesNoJumpAtTheVeryEndOfAPause) {
    const auto session = paused(720, 120);
    EXPECT_EQ(session.elapsedFocusTime(now), 600);
    EXPECT_EQ(session.elapsedFocusTime(now + 0.5), 600.5);
    EXPECT_EQ(session.pauseRemainingSeconds(now), 0);
    EXPECT_EQ(session.pauseRemainingSeconds(now - 0.5), 1);
}

TEST(FocusSession, AddsTheRunningPauseToTheFinishedOnes) {
    auto session = paused(800, 30);
    session.totalPausedTime = 45;
    EXPECT_EQ(session.elapsedFocusTime(now), 725);
}

TEST(FocusSession, IgnoresAPauseWithoutABeginning) {
    auto session = paused(600, 30);
    session.pausedAt.reset();
    EXPECT_EQ(session.remainingTime(now), 900);
    EXPECT_EQ(session.pauseRemainingSeconds(now), 120);
}

TEST(FocusSession, IgnoresTheBeginningOfAPauseThatIsOver) {
    auto session = paused(600, 30);
    session.isPaused = false;
    EXPECT_EQ(session.remainingTime(now), 900);
    EXPECT_EQ(session.pauseRemainingSeconds(now), 120);
}

TEST(FocusSession, RoundsTheRestOfAPauseUp) {
    EXPECT_EQ(paused(600, 0).pauseRemainingSeconds(now), 120);
    EXPECT_EQ(paused(600, 0.25).pauseRemainingSeconds(now), 120);
    EXPECT_EQ(paused(600, 1).pauseRemainingSeconds(now), 119);
    EXPECT_EQ(paused(600, 119).pauseRemainingSeconds(now), 1);
    EXPECT_EQ(paused(600, 119.75).pauseRemainingSeconds(now), 1);
    EXPECT_EQ(paused(600, 120).pauseRemainingSeconds(now), 0);
    EXPECT_EQ(paused(600, 1e12).pauseRemainingSeconds(now), 0);
}

TEST(FocusSession, HasItsWholePauseLeftWithoutOne) {
    EXPECT_EQ(running(600).pauseRemainingSeconds(now), 120);
}

TEST(FocusSession, StandsStillAtItsPauseWhenTheClockIsSetBack) {
    const auto session = paused(630, 30);
    EXPECT_EQ(session.pauseRemainingSeconds(now - 3600), 120);
    EXPECT_EQ(session.remainingTime(now - 3600), 900);
}

TEST(FocusSession, HasAllItsTimeLeftWhenTheClockIsSetBackBeforeItsStart) {
    EXPECT_EQ(running(600).remainingTime(now - 3600), 1500);
    EXPECT_EQ(running(600).elapsedFocusTime(now - 3600), 0);
}

TEST(FocusSession, StartsAsAPlanThatWasNeverRun) {
    const FocusSession session;
    EXPECT_FALSE(session.isActive);
    EXPECT_FALSE(session.isPaused);
    EXPECT_EQ(session.startTime, std::nullopt);
    EXPECT_EQ(session.outcome, std::nullopt);
    EXPECT_EQ(session.pauseCount, 0);
    EXPECT_FALSE(session.id.isNull());
    EXPECT_NE(session.id, FocusSession().id);
}

TEST(FocusSession, RestartsThePlanWithoutTheRun) {
    auto session = paused(600, 30);
    session.goal = u"Write report"_s;
    session.blockedApps = texts({u"Slack"});
    session.blockedWebsites = texts({u"example.com"});
    session.blockCategories = {BlockCategory::defaults()[2]};
    session.totalPausedTime = 45;
    session.outcome = SessionOutcome::endedEarly;
    session.focusedTime = 525;
    session.pauseCount = 2;

    const auto again = session.restarted(u"Review report"_s);

    FocusSession expected;
    expected.id = again.id;
    expected.goal = u"Review report"_s;
    expected.duration = 1500;
    expected.blockedApps = session.blockedApps;
    expected.blockedWebsites = session.blockedWebsites;
    expected.blockCategories = session.blockCategories;
    expected.pauseCount = 0;
    EXPECT_EQ(again, expected);
    EXPECT_NE(again.id, session.id);
}

} // namespace
} // namespace tolvar
