#include "Extensions/TextOrder.h"

#include "Support/Texts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using test::Texts;
using test::texts;

Texts naturally(Texts names, const QLocale& locale) {
    std::stable_sort(names.begin(), names.end(), NaturalOrder(locale));
    return names;
}

class NaturalOrderIn : public testing::TestWithParam<const char*> {};

TEST_P(NaturalOrderIn, ComparesDigitRunsByValueAndIgnoresCase) {
    const QLocale locale(QString::fromLatin1(GetParam()));
    EXPECT_EQ(naturally(texts({u"zoom", u"Arc", u"App 10", u"App 2"}), locale),
              texts({u"App 2", u"App 10", u"Arc", u"zoom"}));
}

TEST_P(NaturalOrderIn, KeepsTheOrderOfNamesThatDifferOnlyInCase) {
    const QLocale locale(QString::fromLatin1(GetParam()));
    EXPECT_EQ(naturally(texts({u"slack", u"Slack", u"SLACK"}), locale),
              texts({u"slack", u"Slack", u"SLACK"}));
}

INSTANTIATE_TEST_SUITE_P(Locales, NaturalOrderIn,
                         testing::Values("C", "en_US", "de_DE", "sv_SE", "ja_JP", "tr_TR"));

TEST(ScalarOrder, PutsUpperCaseBeforeLowerCase) {
    EXPECT_TRUE(precedesByScalars(u"Zoom"_s, u"arc"_s));
    EXPECT_FALSE(precedesByScalars(u"arc"_s, u"Zoom"_s));
}

TEST(ScalarOrder, PutsAPrefixFirstAndNothingBeforeItself) {
    EXPECT_TRUE(precedesByScalars(u"App"_s, u"App 2"_s));
    EXPECT_FALSE(precedesByScalars(u"App 2"_s, u"App"_s));
    EXPECT_FALSE(precedesByScalars(u"App"_s, u"App"_s));
}

TEST(ScalarOrder, PutsScalarsBeyondTheBasicPlaneLast) {
    const QString privateUse = u"\uE000"_s;
    const QString emoji = u"\U0001F3F0"_s;
    EXPECT_TRUE(precedesByScalars(privateUse, emoji));
    EXPECT_FALSE(precedesByScalars(emoji, privateUse));
    EXPECT_TRUE(precedesByScalars(u"\u00e9"_s, emoji));
    EXPECT_TRUE(precedesByScalars(emoji, u"\U0001F3F1"_s));
}

} // namespace
} // namespace tolvar
