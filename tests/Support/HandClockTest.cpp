#include "Support/HandClock.h"

#include <gtest/gtest.h>

#include <vector>

namespace tolvar::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

TEST(HandClock, FiresARepeatingTimerOncePerIntervalAtItsOwnMoment) {
    HandClock clock;
    std::vector<Seconds> moments;
    const auto timer =
        clock.repeat(seconds(1), [&] { moments.push_back(clock.now() - HandClock::start); });
    clock.advance(3.5);
    EXPECT_EQ(moments, (std::vector<Seconds>{1, 2, 3}));
    EXPECT_DOUBLE_EQ(clock.now() - HandClock::start, 3.5);
}

TEST(HandClock, NeverFiresATimerOnceItIsDropped) {
    HandClock clock;
    int fired = 0;
    std::unique_ptr<Timer> timer = clock.repeat(seconds(1), [&] {
        ++fired;
        timer.reset();
    });
    clock.advance(10);
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST(HandClock, FiresAZeroDelayOnlyWhenTimeIsAdvanced) {
    HandClock clock;
    int fired = 0;
    const auto timer = clock.once(milliseconds(0), [&] { ++fired; });
    EXPECT_EQ(fired, 0);
    clock.advance(0);
    EXPECT_EQ(fired, 1);
}

TEST(HandClock, KeepsTimersStillWhenTheWallClockIsSet) {
    HandClock clock;
    int fired = 0;
    const auto timer = clock.repeat(seconds(1), [&] { ++fired; });
    clock.setWallClock(HandClock::start - 3600);
    clock.suspend(7200);
    EXPECT_EQ(fired, 0);
    clock.advance(1);
    EXPECT_EQ(fired, 1);
    EXPECT_DOUBLE_EQ(clock.now() - HandClock::start, 3601);
}

} // namespace
} // namespace tolvar::test
