#include "Views/StartSession/SessionPlan.h"

#include "Support/Texts.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

SessionPlan planOf(const QString& goal) {
    SessionPlan plan;
    plan.goal = goal;
    return plan;
}

const std::vector<BlockCategory> categories{
    {.id = u"Social Media"_s, .name = u"Social Media"_s, .apps = {u"Chat"_s}, .websites = {}},
    {.id = u"Gaming"_s, .name = u"Gaming"_s, .apps = {}, .websites = {u"play.example"_s}}};

TEST(SessionPlan, OffersSixLengthsAndBeginsWithTwentyFiveMinutes) {
    QStringList titles;
    for (const auto& [title, seconds] : SessionPlan::durations)
        titles << u"%1=%2"_s.arg(title.toString()).arg(seconds);
    EXPECT_EQ(titles, QStringList({u"5m=300"_s, u"15m=900"_s, u"25m=1500"_s, u"45m=2700"_s,
                                   u"1h=3600"_s, u"2h=7200"_s}));
    EXPECT_EQ(SessionPlan().selectedDuration, 1500);
}

TEST(SessionPlan, RefusesAGoalOfWhiteSpace) {
    for (const QString& goal : {u""_s, u"   "_s, u" \n\t\r\n"_s})
        EXPECT_FALSE(planOf(goal).session(categories)) << goal.toStdString();
}

TEST(SessionPlan, TrimsTheGoal) {
    EXPECT_EQ(planOf(u" \n Write report\n"_s).session(categories)->goal, u"Write report");
}

TEST(SessionPlan, MakesASessionThatHasNotStarted) {
    SessionPlan plan = planOf(u"Write"_s);
    plan.selectedDuration = 2700;
    plan.customApps = {u"XTerm"_s, u"Chess"_s};
    const auto session = plan.session(categories);
    ASSERT_TRUE(session);
    EXPECT_FALSE(session->id.isNull());
    EXPECT_EQ(session->duration, 2700);
    EXPECT_EQ(session->blockedApps, (std::vector<QString>{u"Chess"_s, u"XTerm"_s}));
    EXPECT_TRUE(session->blockedWebsites.empty());
    EXPECT_FALSE(session->isActive);
    EXPECT_FALSE(session->isPaused);
    EXPECT_FALSE(session->pausedAt);
    EXPECT_EQ(session->totalPausedTime, 0);
    EXPECT_FALSE(session->outcome);
    EXPECT_FALSE(session->focusedTime);
    EXPECT_FALSE(session->pauseCount);
}

TEST(SessionPlan, TakesTheChosenCategoriesInTheStoresOrderWithoutThoseThatAreGone) {
    SessionPlan plan = planOf(u"Write"_s);
    for (const QString& id : {u"Gaming"_s, u"Deleted"_s, u"Social Media"_s})
        plan.toggleCategory(id);
    EXPECT_EQ(plan.session(categories)->blockCategories, categories);
}

TEST(SessionPlan, LetsACategoryGoThatIsChosenTwice) {
    SessionPlan plan = planOf(u"Write"_s);
    plan.toggleCategory(u"Gaming"_s);
    plan.toggleCategory(u"Gaming"_s);
    EXPECT_TRUE(plan.session(categories)->blockCategories.empty());
}

TEST(SessionPlan, BlocksNothingWhenNothingIsChosen) {
    const auto session = planOf(u"Write"_s).session(categories);
    EXPECT_TRUE(session->blockedApps.empty());
    EXPECT_TRUE(session->blockCategories.empty());
}

TEST(CustomAppsLabel, SaysWhatItIsForAndThenWhatIsChosen) {
    EXPECT_EQ(customAppsLabel({}), u"Block specific apps");
    EXPECT_EQ(customAppsLabel({u"Slack"_s, u"Chess"_s}), u"Blocking Chess, Slack");
}

TEST(MoreAppsText, CountsThoseWhoseIconsAreNotShown) {
    EXPECT_EQ(moreAppsText(6, 6), u"");
    EXPECT_EQ(moreAppsText(7, 6), u"and 1 more");
    EXPECT_EQ(moreAppsText(12, 6), u"and 6 more");
}

} // namespace
} // namespace tolvar::test
