#include "Views/ActiveSession/WrappedText.h"

#include "Views/Theme/Instrument.h"

#include <QFontMetricsF>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double width = 340;
constexpr int most = 3;

QFont font() {
    return Instrument::font(19, QFont::Medium, 0.38);
}

std::vector<QString> lines(const QString& text) {
    return wrappedLines(text, font(), width, most);
}

void expectAllFit(const std::vector<QString>& wrapped) {
    EXPECT_LE(wrapped.size(), static_cast<std::size_t>(most));
    for (const QString& line : wrapped)
        EXPECT_LE(QFontMetricsF(font()).horizontalAdvance(line), width + 1) << line.toStdString();
}

TEST(WrappedText, LeavesAShortGoalOnOneLine) {
    EXPECT_THAT(lines(u"Write report"_s), ElementsAre(u"Write report"_s));
    EXPECT_THAT(lines({}), IsEmpty());
    EXPECT_THAT(lines(u" \n "_s), IsEmpty());
}

TEST(WrappedText, BreaksBetweenWordsAndLosesNone) {
    const QString goal = u"Write the second chapter and read it aloud to the end"_s;
    const auto wrapped = lines(goal);
    ASSERT_EQ(wrapped.size(), 2U);
    EXPECT_EQ(wrapped[0] + u' ' + wrapped[1], goal);
    expectAllFit(wrapped);
}

TEST(WrappedText, EndsInAnEllipsisAfterTheLastLine) {
    const auto wrapped = lines(u"again and "_s.repeated(40));
    ASSERT_EQ(wrapped.size(), 3U);
    EXPECT_TRUE(wrapped[2].endsWith(u'…'));
    EXPECT_FALSE(wrapped[1].contains(u'…'));
    expectAllFit(wrapped);
}

TEST(WrappedText, HasNoEllipsisWhenTheLastLineHoldsTheRest) {
    QString goal = u"again"_s;
    while (!lines(goal + u" again"_s).back().endsWith(u'…'))
        goal += u" again"_s;
    const auto wrapped = lines(goal);
    ASSERT_EQ(wrapped.size(), 3U);
    EXPECT_EQ(wrapped[0] + u' ' + wrapped[1] + u' ' + wrapped[2], goal);
}

TEST(WrappedText, LeavesNoWordAloneOnTheLastLine) {
    QString goal = u"again"_s;
    while (lines(goal).size() < 2)
        goal += u" again"_s;
    const auto wrapped = lines(goal);
    ASSERT_EQ(wrapped.size(), 2U);
    EXPECT_LE(wrapped[0].size() - wrapped[1].size(), u"again again "_s.size());
    EXPECT_TRUE(wrapped[1].contains(u' '));
}

TEST(WrappedText, BreaksNoWordToMakeItsLinesEquallyLong) {
    const QString word = u"Rindfleischetikettierungsgesetz"_s;
    EXPECT_THAT(lines(u"Read "_s + word + u" now"_s),
                testing::Contains(testing::ResultOf(
                    [&](const QString& line) { return line.contains(word); }, true)));
}

TEST(WrappedText, LosesNothingWithoutAnEllipsis) {
    for (int length = 60; length < 140; ++length) {
        const QString word = u"x"_s.repeated(length);
        const auto wrapped = lines(word);
        expectAllFit(wrapped);
        QString all;
        for (const QString& line : wrapped)
            all += line;
        EXPECT_TRUE(all == word || all.endsWith(u'…')) << length;
    }
}

TEST(WrappedText, BreaksAWordThatFitsNoLine) {
    const QString word = u"Rindfleischetikettierungsüberwachungsaufgabenübertragungsgesetz"_s;
    const auto wrapped = lines(word);
    ASSERT_EQ(wrapped.size(), 2U);
    EXPECT_EQ(wrapped[0] + wrapped[1], word);
    expectAllFit(wrapped);
    const auto endless = lines(u"x"_s.repeated(500));
    ASSERT_EQ(endless.size(), 3U);
    EXPECT_TRUE(endless[2].endsWith(u'…'));
    expectAllFit(endless);
}

TEST(WrappedText, TakesLineBreaksAndRunsOfBlanksForOneSpace) {
    EXPECT_THAT(lines(u"  Write\n\n the\t report "_s), ElementsAre(u"Write the report"_s));
}

TEST(WrappedText, DoesNotSplitACharacterOfSeveralParts) {
    const QString family = u"👩‍👩‍👧‍👦"_s;
    for (const QString& line : lines(family.repeated(60))) {
        EXPECT_FALSE(line.isEmpty());
        EXPECT_TRUE(line.startsWith(family)) << line.toStdString();
    }
}

} // namespace
} // namespace tolvar::test
