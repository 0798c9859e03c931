#include "Views/History/DayWatch.h"

#include "Extensions/LocalTime.h"
#include "Support/HandClock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

constexpr Seconds minute = 60;
constexpr Seconds hour = 3600;

/// A watch that began at 9:00 on a Monday.
class DayWatchTest : public testing::Test {
protected:
    DayWatchTest() {
        qputenv("TZ", "UTC");
        tzset();
    }

    HandClock clock;
    int changes = 0;
    DayWatch watch{clock, clock, [this] { ++changes; }};
};

TEST_F(DayWatchTest, TellsAtMidnightAndNotBefore) {
    watch.start();
    EXPECT_EQ(changes, 0);
    clock.advance(15 * hour - 0.001);
    EXPECT_EQ(changes, 0);
    clock.advance(0.001);
    EXPECT_EQ(changes, 1);
    clock.advance(24 * hour - 1);
    EXPECT_EQ(changes, 1);
    clock.advance(1);
    EXPECT_EQ(changes, 2);
}

TEST_F(DayWatchTest, TellsWithinAMinuteAfterANightInSuspend) {
    watch.start();
    clock.suspend(20 * hour);
    EXPECT_EQ(changes, 0);
    clock.advance(minute);
    EXPECT_EQ(changes, 1);
}

TEST_F(DayWatchTest, TellsWithinAMinuteAfterTheClockWasSetBack) {
    watch.start();
    clock.setWallClock(HandClock::start - 24 * hour);
    clock.advance(minute);
    EXPECT_EQ(changes, 1);
}

TEST_F(DayWatchTest, TellsAtMidnightOnDaysThatAreShorter) {
    qputenv("TZ", "Europe/Berlin");
    tzset();
    // 23 hours before the end of 30 March 2025.
    clock.setWallClock(Date::fromEpoch(1743289200));
    DayWatch short23(clock, clock, [this] { ++changes; });
    short23.start();
    clock.advance(23 * hour - 1);
    EXPECT_EQ(changes, 0);
    clock.advance(1);
    EXPECT_EQ(changes, 1);
}

TEST_F(DayWatchTest, SleepsWhileNobodyLooksAndTellsAtTheNextLook) {
    watch.start();
    watch.stop();
    EXPECT_EQ(clock.runningTimers(), 0u);
    clock.advance(48 * hour);
    EXPECT_EQ(changes, 0);
    watch.start();
    EXPECT_EQ(changes, 1);
    watch.start();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(clock.runningTimers(), 1u);
}

} // namespace
} // namespace tolvar::test
