#include "Views/History/FocusedOfPlanned.h"

#include <gtest/gtest.h>

#include <limits>

namespace tolvar::test {
namespace {

constexpr Seconds minute = 60;
constexpr Seconds hour = 3600;

TEST(FocusedOfPlanned, CountsMinutesOfAPlanBelowAnHour) {
    EXPECT_EQ(focusedOfPlanned(12 * minute, 25 * minute), u"12 of 25 min");
    EXPECT_EQ(focusedOfPlanned(0, 5 * minute), u"0 of 5 min");
}

TEST(FocusedOfPlanned, DropsSecondsOfMinutesThatAreNotFull) {
    EXPECT_EQ(focusedOfPlanned(12 * minute + 59.9, 25 * minute + 59), u"12 of 25 min");
    EXPECT_EQ(focusedOfPlanned(59, 59), u"0 of 0 min");
}

TEST(FocusedOfPlanned, IsCompactFromAPlannedHourOn) {
    EXPECT_EQ(focusedOfPlanned(70 * minute, 2 * hour), u"1h 10m of 2h");
    EXPECT_EQ(focusedOfPlanned(12 * minute, hour), u"12m of 1h");
}

TEST(FocusedOfPlanned, LetsThePlanAloneDecideBetweenTheForms) {
    EXPECT_EQ(focusedOfPlanned(70 * minute, 50 * minute), u"70 of 50 min");
    EXPECT_EQ(focusedOfPlanned(70 * minute, hour - 0.1), u"70 of 59 min");
}

TEST(FocusedOfPlanned, IsThePlanWhereNothingWasMeasured) {
    EXPECT_EQ(focusedOfPlanned(std::nullopt, 25 * minute), u"25 min");
    EXPECT_EQ(focusedOfPlanned(std::nullopt, 1.5 * hour), u"1h 30m");
}

TEST(FocusedOfPlanned, IsEmptyForWhatNobodyCanHavePlanned) {
    const Seconds endless = std::numeric_limits<double>::infinity();
    EXPECT_EQ(focusedOfPlanned(std::nullopt, endless), u"");
    EXPECT_EQ(focusedOfPlanned(endless, hour), u"");
    EXPECT_EQ(focusedOfPlanned(minute, 1e300), u"");
}

} // namespace
} // namespace tolvar::test
