#include "App/Client/DurationArgument.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

TEST(DurationArgument, ReadsHoursMinutesAndSecondsInThisOrder) {
    EXPECT_EQ(parseDuration(u"25m"_s), 1500);
    EXPECT_EQ(parseDuration(u"1h30m"_s), 5400);
    EXPECT_EQ(parseDuration(u"90s"_s), 90);
    EXPECT_EQ(parseDuration(u"2h"_s), 7200);
    EXPECT_EQ(parseDuration(u"1h2m3s"_s), 3723);
    EXPECT_EQ(parseDuration(u"1h5s"_s), 3605);
}

TEST(DurationArgument, ReadsABareNumberAsSeconds) {
    EXPECT_EQ(parseDuration(u"1500"_s), 1500);
    EXPECT_EQ(parseDuration(u"007"_s), 7);
}

TEST(DurationArgument, ReadsLengthsAsTheProgramWritesThem) {
    EXPECT_EQ(parseDuration(u"1h 30m"_s), 5400);
    EXPECT_EQ(parseDuration(u" 25m "_s), 1500);
}

TEST(DurationArgument, TakesMoreMinutesThanAnHourHas) {
    EXPECT_EQ(parseDuration(u"90m"_s), 5400);
    EXPECT_EQ(parseDuration(u"1h90m"_s), 9000);
}

TEST(DurationArgument, RejectsNothingAtAll) {
    for (const auto& text : {u""_s, u" "_s, u"0"_s, u"0m"_s, u"0h0m0s"_s})
        EXPECT_EQ(parseDuration(text), std::nullopt) << text.toStdString();
}

TEST(DurationArgument, RejectsNegativeOnesFractionsAndGarbage) {
    for (const auto& text : {u"-5m"_s, u"+5m"_s, u"1.5h"_s, u"1,5h"_s, u"m"_s, u"five"_s,
                             u"25min"_s, u"25M"_s, u"1e3"_s, u"0x10"_s, u"٢٥m"_s, u"25m\n10"_s})
        EXPECT_EQ(parseDuration(text), std::nullopt) << text.toStdString();
}

TEST(DurationArgument, RejectsUnitsInAnotherOrderTwiceOrMissing) {
    for (const auto& text : {u"30m1h"_s, u"5m5m"_s, u"25m30"_s, u"1h30"_s, u"30 1h"_s, u"2 5m"_s})
        EXPECT_EQ(parseDuration(text), std::nullopt) << text.toStdString();
}

TEST(DurationArgument, RejectsMoreThanAYearHoweverManyDigitsSayIt) {
    EXPECT_EQ(parseDuration(u"8784h"_s), 366.0 * 24 * 3600);
    EXPECT_EQ(parseDuration(u"8785h"_s), std::nullopt);
    EXPECT_EQ(parseDuration(u"99999999999999999999"_s), std::nullopt);
    EXPECT_EQ(parseDuration(QString(400, u'9')), std::nullopt);
}

} // namespace
} // namespace tolvar
