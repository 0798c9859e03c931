#include "Views/ActiveSession/DialReading.h"

#include "Support/HandClock.h"
#include "Views/ActiveSession/PauseKeyFace.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

constexpr Date start = HandClock::start;

FocusSession running(Seconds duration) {
    FocusSession session;
    session.duration = duration;
    session.startTime = start;
    session.isActive = true;
    return session;
}

FocusSession paused(Seconds duration, Seconds after) {
    FocusSession session = running(duration);
    session.isPaused = true;
    session.pausedAt = start + after;
    session.pauseCount = 1;
    return session;
}

TEST(DurationPhrase, CountsMinutesBelowAnHour) {
    EXPECT_EQ(durationPhrase(25 * 60), u"25 minutes"_s);
    EXPECT_EQ(durationPhrase(60), u"1 minute"_s);
    EXPECT_EQ(durationPhrase(119.9), u"1 minute"_s);
    EXPECT_EQ(durationPhrase(59), u"0 minutes"_s);
    EXPECT_EQ(durationPhrase(0), u"0 minutes"_s);
    EXPECT_EQ(durationPhrase(3599.9), u"59 minutes"_s);
}

TEST(DurationPhrase, CountsWholeHours) {
    EXPECT_EQ(durationPhrase(3600), u"1 hour"_s);
    EXPECT_EQ(durationPhrase(3659), u"1 hour"_s) << "seconds do not count";
    EXPECT_EQ(durationPhrase(7200), u"2 hours"_s);
    EXPECT_EQ(durationPhrase(36000), u"10 hours"_s);
}

TEST(DurationPhrase, IsCompactInBetween) {
    EXPECT_EQ(durationPhrase(5400), u"1h 30m"_s);
    EXPECT_EQ(durationPhrase(3660), u"1h 1m"_s);
}

TEST(DurationPhrase, SaysSomethingOfAnyNumber) {
    EXPECT_EQ(durationPhrase(-90), u"-1 minutes"_s);
    EXPECT_EQ(durationPhrase(std::nan("")), u"0 minutes"_s);
    EXPECT_EQ(durationPhrase(std::numeric_limits<double>::infinity()), durationPhrase(1e300));
}

TEST(DialReading, RoundsTheTimeLeftUp) {
    EXPECT_EQ(DialReading::of(running(60), start + 59.8).remainingSeconds, 1);
    EXPECT_EQ(DialReading::of(running(60), start + 60.0).remainingSeconds, 0);
    EXPECT_EQ(DialReading::of(running(60), start).remainingSeconds, 60);
    EXPECT_EQ(DialReading::of(running(60), start + 0.1).remainingSeconds, 60);
}

TEST(DialReading, HasNoTimeLeftRatherThanLess) {
    EXPECT_EQ(DialReading::of(running(60), start + 500).remainingSeconds, 0);
    EXPECT_EQ(DialReading::of(running(-60), start).remainingSeconds, 0);
    EXPECT_EQ(DialReading::of(running(60), start + 500).progress, 1);
}

TEST(DialReading, ProgressIsThePartThatHasElapsed) {
    EXPECT_EQ(DialReading::of(running(100), start).progress, 0);
    EXPECT_DOUBLE_EQ(DialReading::of(running(100), start + 25).progress, 0.25);
    EXPECT_EQ(DialReading::of(running(0), start + 25).progress, 0) << "no length, no progress";
    EXPECT_EQ(DialReading::of(running(-5), start + 25).progress, 0);
}

TEST(DialReading, ReadsAPausedSession) {
    const auto reading = DialReading::of(paused(1500, 540), start + 557.0);
    EXPECT_TRUE(reading.isPaused);
    EXPECT_EQ(reading.remainingSeconds, 960) << "the clock stands still";
    EXPECT_EQ(reading.pauseRemainingSeconds, 103);
    EXPECT_EQ(reading.clock(), u"16:00"_s);
    EXPECT_EQ(reading.caption(), u"Paused for 1:43"_s);
}

TEST(DialReading, SaysWhatTheTimeIsLeftOf) {
    const auto caption = [](Seconds duration) {
        return DialReading::of(running(duration), start).caption();
    };
    EXPECT_EQ(caption(90 * 60), u"of 1h 30m"_s);
    EXPECT_EQ(caption(120 * 60), u"of 2 hours"_s);
    EXPECT_EQ(caption(25 * 60), u"of 25 minutes"_s);
    EXPECT_EQ(caption(60), u"of 1 minute"_s);
}

TEST(DialReading, PadsTheMinutesOfTheClockAlone) {
    EXPECT_EQ((DialReading{.remainingSeconds = 65}).clock(), u"01:05"_s);
    EXPECT_EQ((DialReading{.remainingSeconds = 7199}).clock(), u"1:59:59"_s);
    EXPECT_EQ((DialReading{.pauseRemainingSeconds = 9}).pausedCaption(), u"Paused for 0:09"_s);
}

TEST(PauseKeyFace, OffersThePausesThatAreLeft) {
    FocusSession session = running(1500);
    const PauseKeyFace fresh{u"Pause, 2 left"_s, Symbol::pause, PauseKeyFace::Action::pause, true,
                             2};
    EXPECT_EQ(PauseKeyFace::of(session), fresh);
    session.pauseCount.reset();
    EXPECT_EQ(PauseKeyFace::of(session), fresh) << "not counted is none taken";
    session.pauseCount = 1;
    EXPECT_EQ(PauseKeyFace::of(session).name, u"Pause, 1 left"_s);
    EXPECT_EQ(PauseKeyFace::of(session).lamps, 1);
}

TEST(PauseKeyFace, IsOffWhenNoneAreLeft) {
    FocusSession session = running(1500);
    for (const int taken : {2, 3, std::numeric_limits<int>::max()}) {
        session.pauseCount = taken;
        EXPECT_EQ(PauseKeyFace::of(session), (PauseKeyFace{u"No pauses left"_s, Symbol::pause,
                                                           PauseKeyFace::Action::pause, false, 0}));
    }
}

TEST(PauseKeyFace, AlwaysOffersToResume) {
    FocusSession session = paused(1500, 10);
    const PauseKeyFace resume{u"Resume"_s, Symbol::play, PauseKeyFace::Action::resume, true, 0};
    EXPECT_EQ(PauseKeyFace::of(session), resume);
    session.pauseCount = 2;
    EXPECT_EQ(PauseKeyFace::of(session), resume);
    session.isActive = false;
    EXPECT_EQ(PauseKeyFace::of(session), resume);
}

TEST(PauseKeyFace, IsOffForASessionThatDoesNotRun) {
    FocusSession session = running(1500);
    session.isActive = false;
    EXPECT_FALSE(PauseKeyFace::of(session).isEnabled);
    EXPECT_EQ(PauseKeyFace::of(session).name, u"Pause, 2 left"_s);
}

TEST(PauseKeyFace, ShowsNoMoreLampsThanThereArePauses) {
    FocusSession session = running(1500);
    session.pauseCount = std::numeric_limits<int>::min();
    EXPECT_EQ(PauseKeyFace::of(session).lamps, FocusSession::maximumPauseCount);
}

} // namespace
} // namespace tolvar::test
