#include "Extensions/LocalTime.h"

#include <gtest/gtest.h>

#include <limits>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

const QDate day(2025, 3, 4);

QString shortDate(const QString& locale) {
    return monthAndDay(day, QLocale(locale));
}

TEST(MonthAndDay, IsSpelledAsThePersonDoes) {
    EXPECT_EQ(shortDate(u"en_US"_s), u"Mar 4");
    EXPECT_EQ(shortDate(u"en_GB"_s), u"4 Mar");
    EXPECT_EQ(shortDate(u"de_DE"_s), u"4. M\u00e4rz");
    EXPECT_EQ(shortDate(u"es_ES"_s), u"4 de mar");
    EXPECT_EQ(shortDate(u"ja_JP"_s), u"3\u67084\u65e5");
    EXPECT_EQ(shortDate(u"hu_HU"_s), u"m\u00e1rc. 4.");
}

TEST(MonthAndDay, NeverSaysTheYearOrTheDayOfTheWeek) {
    for (const QLocale& locale : QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript,
                                                          QLocale::AnyTerritory)) {
        if (locale.language() == QLocale::C)
            continue;
        const QString text = monthAndDay(day, locale);
        EXPECT_FALSE(text.contains(locale.toString(day, u"yyyy"_s))) << text.toStdString();
        EXPECT_FALSE(text.contains(locale.dayName(2))) << text.toStdString();
        EXPECT_TRUE(text.contains(locale.toString(4))) << text.toStdString();
    }
}

TEST(LocalTime, BringsWhatNoCalendarCanSayWithinOne) {
    EXPECT_TRUE(localTime({std::numeric_limits<double>::max()}).isValid());
    EXPECT_TRUE(localTime({-std::numeric_limits<double>::max()}).isValid());
}

} // namespace
} // namespace tolvar::test
