#include "Models/PresetName.h"

#include "Support/HandClock.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

#include <ctime>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

/// Names the start of 4 March 2025, 9:15, at a place without summer time.
class PresetName : public testing::Test {
protected:
    PresetName() {
        qputenv("TZ", "UTC");
        tzset();
    }

    static QString name(const QString& goal, const QLocale& locale = QLocale(u"en_US"_s)) {
        FocusSession session;
        session.goal = goal;
        session.startTime = Date::fromEpoch(1741079700);
        return presetName(session, locale);
    }
};

TEST_F(PresetName, IsTheGoalWithoutSurroundingWhiteSpace) {
    EXPECT_EQ(name(u"Write report"_s), u"Write report"_s);
    EXPECT_EQ(name(u" \n\tWrite  report\u00a0\r\n"_s), u"Write  report"_s);
}

TEST_F(PresetName, IsTheStartOfASessionWithoutAGoal) {
    EXPECT_EQ(name(u""_s), u"Session Mar 4, 2025 at 9:15 AM"_s);
    EXPECT_EQ(name(u"   "_s), u"Session Mar 4, 2025 at 9:15 AM"_s);
}

TEST_F(PresetName, SpellsTheStartAsThePersonDoes) {
    EXPECT_EQ(name({}, QLocale(u"en_GB"_s)), u"Session 4 Mar 2025 at 09:15"_s);
    EXPECT_EQ(name({}, QLocale(u"de_DE"_s)), u"Session 4. M\u00e4rz 2025 at 09:15"_s);
    EXPECT_EQ(name({}, QLocale(u"da_DK"_s)), u"Session 4. mar. 2025 at 09.15"_s);
    EXPECT_EQ(name({}, QLocale(u"ja_JP"_s)), u"Session 2025\u5e743\u67084\u65e5 at 9:15"_s);
    EXPECT_EQ(name({}, QLocale(u"hu_HU"_s)), u"Session 2025. m\u00e1rc. 4. at 9:15"_s);
}

TEST_F(PresetName, SpellsTheStartInEnglishWhereTheLocaleIsNoLanguage) {
    EXPECT_EQ(name({}, QLocale::c()), u"Session Mar 4, 2025 at 9:15 AM"_s);
}

TEST_F(PresetName, KeepsTheDayOfTheWeekOutOfEveryLocale) {
    for (const auto& locale : QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript,
                                                       QLocale::AnyTerritory)) {
        if (locale.language() != QLocale::C) {
            const auto text = name({}, locale);
            EXPECT_FALSE(text.contains(locale.dayName(2))) << text.toStdString();
        }
    }
}

TEST_F(PresetName, IsSavedSessionWhereNothingIsKnown) {
    EXPECT_EQ(presetName(FocusSession()), u"Saved Session"_s);
}

TEST_F(PresetName, SurvivesAStartBeyondAnyCalendar) {
    FocusSession session;
    for (const Seconds seconds : {1e300, -1e300}) {
        session.startTime = Date{seconds};
        EXPECT_TRUE(presetName(session).startsWith(u"Session "_s));
    }
}

} // namespace
} // namespace tolvar::test
