#include "Views/History/RelativeDate.h"

#include "Extensions/LocalTime.h"

#include <gtest/gtest.h>

#include <ctime>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

const QLocale american(u"en_US"_s);

/// Says dates at a place and a moment of one's own.
class RelativeDate : public testing::Test {
protected:
    RelativeDate() { live(u"UTC"_s); }

    static void live(const QString& zone) {
        qputenv("TZ", zone.toUtf8());
        tzset();
    }
    /// On the wall clock of the place.
    static Date at(const QString& moment) {
        const QDateTime local = QDateTime::fromString(moment, u"yyyy-MM-dd HH:mm"_s);
        return Date::fromEpoch(static_cast<double>(local.toMSecsSinceEpoch()) / 1000);
    }
    static QString said(const QString& date, const QString& now, const QLocale& locale = american) {
        return relativeDate(at(date), at(now), locale);
    }
};

TEST_F(RelativeDate, IsTodayFromMidnightToMidnight) {
    EXPECT_EQ(said(u"2025-03-04 00:00"_s, u"2025-03-04 23:59"_s), u"Today, 12:00 AM");
    EXPECT_EQ(said(u"2025-03-04 23:59"_s, u"2025-03-04 00:00"_s), u"Today, 11:59 PM");
}

TEST_F(RelativeDate, IsYesterdayAMinuteLater) {
    EXPECT_EQ(said(u"2025-03-03 23:59"_s, u"2025-03-04 00:00"_s), u"Yesterday, 11:59 PM");
    EXPECT_EQ(said(u"2025-03-03 00:00"_s, u"2025-03-04 23:59"_s), u"Yesterday, 12:00 AM");
}

TEST_F(RelativeDate, IsADayOfTheWeekForSixDays) {
    EXPECT_EQ(said(u"2025-03-02 09:15"_s, u"2025-03-04 09:00"_s), u"Sunday, 9:15 AM");
    EXPECT_EQ(said(u"2025-02-26 00:00"_s, u"2025-03-04 23:59"_s), u"Wednesday, 12:00 AM");
}

TEST_F(RelativeDate, IsAMonthAndADayAWeekLater) {
    EXPECT_EQ(said(u"2025-02-25 23:59"_s, u"2025-03-04 00:00"_s), u"Feb 25, 11:59 PM");
    EXPECT_EQ(said(u"2015-12-31 09:15"_s, u"2025-03-04 00:00"_s), u"Dec 31, 9:15 AM");
}

TEST_F(RelativeDate, IsAMonthAndADayWhenTheClockWasSetBack) {
    EXPECT_EQ(said(u"2025-03-05 09:15"_s, u"2025-03-04 09:00"_s), u"Mar 5, 9:15 AM");
}

TEST_F(RelativeDate, CountsDaysOfTwentyThreeHours) {
    live(u"Europe/Berlin"_s);
    // Clocks go forward at 2:00 on 30 March 2025.
    EXPECT_EQ(said(u"2025-03-30 00:30"_s, u"2025-03-31 00:00"_s), u"Yesterday, 12:30 AM");
    EXPECT_EQ(said(u"2025-03-29 23:30"_s, u"2025-03-31 00:15"_s), u"Saturday, 11:30 PM");
    EXPECT_EQ(said(u"2025-03-24 00:00"_s, u"2025-03-30 23:59"_s), u"Monday, 12:00 AM");
    EXPECT_EQ(said(u"2025-03-25 00:00"_s, u"2025-04-01 00:00"_s), u"Mar 25, 12:00 AM");
}

TEST_F(RelativeDate, CountsDaysOfTwentyFiveHours) {
    live(u"Europe/Berlin"_s);
    // Clocks go back at 3:00 on 26 October 2025.
    EXPECT_EQ(said(u"2025-10-26 00:00"_s, u"2025-10-26 23:59"_s), u"Today, 12:00 AM");
    EXPECT_EQ(said(u"2025-10-25 23:59"_s, u"2025-10-26 23:59"_s), u"Yesterday, 11:59 PM");
    EXPECT_EQ(said(u"2025-10-20 00:00"_s, u"2025-10-26 23:59"_s), u"Monday, 12:00 AM");
}

TEST_F(RelativeDate, KnowsDaysWithoutAMidnight) {
    live(u"America/Sao_Paulo"_s);
    // Clocks went from 0:00 to 1:00 on 4 November 2018.
    EXPECT_EQ(said(u"2018-11-03 23:59"_s, u"2018-11-04 01:00"_s), u"Yesterday, 11:59 PM");
}

TEST_F(RelativeDate, IsThatOfThePlaceWhereTheUserIs) {
    live(u"Asia/Tokyo"_s);
    const Date midnight = at(u"2025-03-04 00:00"_s);
    EXPECT_EQ(relativeDate(midnight - 60, midnight, american), u"Yesterday, 11:59 PM");
    live(u"UTC"_s);
    EXPECT_EQ(relativeDate(midnight - 60, midnight, american), u"Today, 2:59 PM");
}

TEST_F(RelativeDate, FollowsTheUsersSpellingAndClock) {
    const QString now = u"2025-03-14 12:00"_s;
    EXPECT_EQ(said(u"2025-03-14 21:05"_s, now, QLocale(u"de_DE"_s)), u"Today, 21:05");
    EXPECT_EQ(said(u"2025-03-11 21:05"_s, now, QLocale(u"de_DE"_s)), u"Dienstag, 21:05");
    EXPECT_EQ(said(u"2025-03-04 21:05"_s, now, QLocale(u"de_DE"_s)), u"4. M\u00e4rz, 21:05");
    EXPECT_EQ(said(u"2025-03-04 21:05"_s, now, QLocale(u"en_GB"_s)), u"4 Mar, 21:05");
}

TEST_F(RelativeDate, IsEnglishWhereTheLocaleIsNoLanguage) {
    EXPECT_EQ(said(u"2025-03-04 21:05"_s, u"2025-03-14 12:00"_s, QLocale::c()), u"Mar 4, 9:05 PM");
}

} // namespace
} // namespace tolvar::test
