#include "Extensions/DurationFormatting.h"

#include "Support/Texts.h"

#include <gtest/gtest.h>

#include <limits>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

TEST(FormattedCompact, DropsSecondsBelowAFullMinute) {
    EXPECT_EQ(formattedCompact(0), u"0m"_s);
    EXPECT_EQ(formattedCompact(59.9), u"0m"_s);
    EXPECT_EQ(formattedCompact(60), u"1m"_s);
    EXPECT_EQ(formattedCompact(1500), u"25m"_s);
    EXPECT_EQ(formattedCompact(3599), u"59m"_s);
}

TEST(FormattedCompact, NamesMinutesOfAnHourOnlyWhenThereAreAny) {
    EXPECT_EQ(formattedCompact(3600), u"1h"_s);
    EXPECT_EQ(formattedCompact(3659), u"1h"_s);
    EXPECT_EQ(formattedCompact(3660), u"1h 1m"_s);
    EXPECT_EQ(formattedCompact(5400), u"1h 30m"_s);
    EXPECT_EQ(formattedCompact(86400), u"24h"_s);
}

TEST(FormattedCompact, KeepsANegativeDurationInMinutes) {
    EXPECT_EQ(formattedCompact(-90), u"-1m"_s);
    EXPECT_EQ(formattedCompact(-59), u"0m"_s);
}

TEST(FormattedCompactDeathTest, StopsTheProgramOnAnImpossibleDuration) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(formattedCompact(std::numeric_limits<double>::infinity()), "cannot be shown");
    EXPECT_DEATH(formattedCompact(std::numeric_limits<double>::quiet_NaN()), "cannot be shown");
    EXPECT_DEATH(formattedCompact(9223372036854775808.0), "cannot be shown");
}

TEST(FormattedCompact, TakesTheWholeRangeOf64Bits) {
    EXPECT_EQ(formattedCompact(9223372036854774784.0), u"2562047788015215h 13m"_s);
}

TEST(FormattedClock, ShowsMinutesAndSecondsBelowAnHour) {
    EXPECT_EQ(formattedClock(0, PadMinutes::no), u"0:00"_s);
    EXPECT_EQ(formattedClock(0, PadMinutes::yes), u"00:00"_s);
    EXPECT_EQ(formattedClock(65, PadMinutes::no), u"1:05"_s);
    EXPECT_EQ(formattedClock(65, PadMinutes::yes), u"01:05"_s);
    EXPECT_EQ(formattedClock(3599, PadMinutes::no), u"59:59"_s);
    EXPECT_EQ(formattedClock(3599, PadMinutes::yes), u"59:59"_s);
}

TEST(FormattedClock, NeverPadsHours) {
    EXPECT_EQ(formattedClock(3600, PadMinutes::no), u"1:00:00"_s);
    EXPECT_EQ(formattedClock(3600, PadMinutes::yes), u"1:00:00"_s);
    EXPECT_EQ(formattedClock(3723, PadMinutes::no), u"1:02:03"_s);
    EXPECT_EQ(formattedClock(3723, PadMinutes::yes), u"1:02:03"_s);
}

} // namespace
} // namespace tolvar
