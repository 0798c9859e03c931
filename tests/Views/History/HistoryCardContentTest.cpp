#include "Views/History/HistoryCardContent.h"

#include "Support/HandClock.h"
#include "Views/Presets/BlockedSummary.h"

#include <gtest/gtest.h>

#include <ctime>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class HistoryCardContentTest : public testing::Test {
protected:
    HistoryCardContentTest() {
        qputenv("TZ", "UTC");
        tzset();
        session.goal = u"  Write\nreport "_s;
        session.duration = 25 * 60;
        session.startTime = HandClock::start - 3600;
        session.focusedTime = 12 * 60;
        session.outcome = SessionOutcome::endedEarly;
    }

    HistoryCardContent content() {
        return HistoryCardContent::of(session, summaries, HandClock::start, QLocale(u"en_US"_s));
    }

    FocusSession session;
    BlockedSummaries summaries;
};

TEST_F(HistoryCardContentTest, SaysWhatTheSessionWas) {
    session.blockedApps = {u"Slack"_s, u"Chess"_s};
    session.blockCategories = {{u"Mine"_s, u"Mine"_s, {u"Mail"_s}, {u"a.org"_s, u"b.org"_s}}};
    const HistoryCardContent made = content();
    EXPECT_EQ(made.title(), u"Write report");
    EXPECT_EQ(made.date, u"Today, 8:00 AM");
    EXPECT_EQ(made.focused, u"12 of 25 min");
    EXPECT_EQ(made.outcomeText(), u"Ended early");
    EXPECT_EQ(made.blocked.appNames, (QStringList{u"Chess"_s, u"Mail"_s, u"Slack"_s}));
    EXPECT_EQ(made.blocked.sitesText(), u"and 2 sites");
}

TEST_F(HistoryCardContentTest, HasAWordForEachOutcomeAndNoneForNone) {
    session.outcome = SessionOutcome::completed;
    EXPECT_EQ(content().outcomeText(), u"Completed");
    session.outcome.reset();
    EXPECT_EQ(content().outcomeText(), u"");
}

TEST_F(HistoryCardContentTest, HasNoDateWhereTheSessionNeverBegan) {
    session.startTime.reset();
    EXPECT_EQ(content().date, u"");
}

TEST_F(HistoryCardContentTest, SaysThatThereWasNoGoal) {
    session.goal = u" \n"_s;
    EXPECT_TRUE(content().goal.isEmpty());
    EXPECT_EQ(content().title(), u"No goal");
}

TEST_F(HistoryCardContentTest, CanBeReadAloud) {
    session.blockedApps = {u"Slack"_s};
    session.blockedWebsites = {u"a.org"_s};
    EXPECT_EQ(content().spokenText(),
              u"Ended early. 12 of 25 min. Today, 8:00 AM. Blocks Slack and 1 site");
    session.startTime.reset();
    session.blockedApps.clear();
    session.blockedWebsites.clear();
    EXPECT_EQ(content().spokenText(), u"Ended early. 12 of 25 min");
}

} // namespace
} // namespace tolvar::test
