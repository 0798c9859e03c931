#include "App/Remote/SessionPlanner.h"

#include "Platform/Interfaces/InstalledApplications.h"
#include "Platform/Null/NullWorkspace.h"
#include "Support/FakeWorkspace.h"
#include "Support/Texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using Kind = RemoteError::Kind;

class SomeApplications final : public InstalledApplications {
public:
    std::vector<InstalledApplication> list() const override {
        return {{u"org.gimp.GIMP"_s, u"GNU Image Manipulation Program"_s, {}},
                {u"firefox-esr"_s, u"Firefox ESR"_s, {}},
                {u"debian-xterm"_s, u"XTerm"_s, {}},
                {u"debian-uxterm"_s, u"UXTerm"_s, {}}};
    }
};

BlockCategory category(const QString& id, const QString& name) {
    BlockCategory result;
    result.id = id;
    result.name = name;
    return result;
}

FocusPreset preset(const QString& name) {
    FocusPreset result;
    result.name = name;
    result.duration = 3000;
    result.categoryIDs = texts({u"News"});
    result.customApps = texts({u"XTerm"});
    result.customWebsites = texts({u"example.com"});
    return result;
}

class SessionPlannerTest : public testing::Test {
protected:
    SessionPlanner::Request request() const {
        return {.goal = u"Read"_s, .duration = 1500, .categories = {}, .apps = {}, .websites = {}};
    }

    SessionPlanner::Plan planned(const SessionPlanner::Result& result) {
        const auto* plan = std::get_if<SessionPlanner::Plan>(&result);
        EXPECT_NE(plan, nullptr) << std::get<RemoteError>(result).message.toStdString();
        return plan != nullptr ? *plan : SessionPlanner::Plan();
    }

    RemoteError refused(const SessionPlanner::Result& result) {
        const auto* error = std::get_if<RemoteError>(&result);
        EXPECT_NE(error, nullptr) << "nothing was refused";
        return error != nullptr ? *error : RemoteError{Kind::noSession, {}};
    }

    std::vector<BlockCategory> categories = {
        category(u"News"_s, u"News"_s), category(u"Social Media"_s, u"Social Media"_s),
        category(u"5F0E"_s, u"Work"_s), category(u"7A11"_s, u"Play"_s),
        category(u"7A12"_s, u"Play"_s), category(u"9C00"_s, u""_s)};
    SomeApplications installed;
    Journal journal;
    FakeWorkspace workspace{journal};
    SessionPlanner planner{installed, workspace};
};

TEST_F(SessionPlannerTest, PlansASessionThatBlocksNothing) {
    const auto plan = planned(planner.plan(request(), categories));
    EXPECT_EQ(plan.session.goal, u"Read"_s);
    EXPECT_EQ(plan.session.duration, 1500);
    EXPECT_FALSE(plan.session.isActive);
    EXPECT_EQ(plan.session.startTime, std::nullopt);
    EXPECT_TRUE(plan.session.blockedApps.empty());
    EXPECT_TRUE(plan.warnings.isEmpty());
}

TEST_F(SessionPlannerTest, TrimsTheGoalAndRefusesABlankOne) {
    auto wanted = request();
    wanted.goal = u"  Read "_s;
    EXPECT_EQ(planned(planner.plan(wanted, categories)).session.goal, u"Read"_s);
    wanted.goal = u" \n"_s;
    EXPECT_EQ(refused(planner.plan(wanted, categories)).kind, Kind::emptyGoal);
}

TEST_F(SessionPlannerTest, RefusesALengthThatNoSessionCanHave) {
    auto wanted = request();
    for (const double duration : {0.0, 0.999, -60.0, std::numeric_limits<double>::infinity(),
                                  std::numeric_limits<double>::quiet_NaN(), 1e10}) {
        wanted.duration = duration;
        EXPECT_EQ(refused(planner.plan(wanted, categories)).kind, Kind::invalidDuration)
            << duration;
    }
}

TEST_F(SessionPlannerTest, FindsCategoriesByIdAndByNameInAnyCase) {
    auto wanted = request();
    wanted.categories = {u"social media"_s, u"5F0E"_s, u"news"_s};
    const auto plan = planned(planner.plan(wanted, categories));
    EXPECT_EQ(plan.session.blockCategories,
              (std::vector{categories[1], categories[2], categories[0]}));
    wanted.categories = {u"Work"_s};
    EXPECT_EQ(planned(planner.plan(wanted, categories)).session.blockCategories,
              std::vector{categories[2]});
}

TEST_F(SessionPlannerTest, TakesACategoryOnceHoweverOftenItIsNamed) {
    auto wanted = request();
    wanted.categories = {u"News"_s, u"news"_s, u"News"_s};
    EXPECT_EQ(planned(planner.plan(wanted, categories)).session.blockCategories,
              std::vector{categories[0]});
}

TEST_F(SessionPlannerTest, ListsTheKnownCategoriesToWhoeverNamesAnother) {
    auto wanted = request();
    wanted.categories = {u"Sports"_s};
    EXPECT_EQ(refused(planner.plan(wanted, categories)),
              (RemoteError{Kind::unknownCategory,
                           u"there is no category “Sports”; the categories are News, Social Media, "
                           u"Work (5F0E), Play (7A11), Play (7A12), 9C00"_s}));
    wanted.categories = {u""_s};
    EXPECT_EQ(refused(planner.plan(wanted, categories)).kind, Kind::unknownCategory);
}

TEST_F(SessionPlannerTest, AsksForTheIdWhereTwoCategoriesShareAName) {
    auto wanted = request();
    wanted.categories = {u"Play"_s};
    EXPECT_EQ(refused(planner.plan(wanted, categories)),
              (RemoteError{Kind::ambiguousName,
                           u"2 categories are called “Play”; name one by its id: the ids are 7A11, "
                           u"7A12"_s}));
    wanted.categories = {u"7A12"_s};
    EXPECT_EQ(planned(planner.plan(wanted, categories)).session.blockCategories,
              std::vector{categories[4]});
}

TEST_F(SessionPlannerTest, FindsApplicationsByNameAndByIdInAnyCase) {
    auto wanted = request();
    wanted.apps = {u"xterm"_s, u"firefox-esr"_s, u"ORG.GIMP.gimp"_s, u"UXTerm"_s};
    const auto plan = planned(planner.plan(wanted, categories));
    EXPECT_EQ(plan.session.blockedApps,
              texts({u"XTerm", u"Firefox ESR", u"GNU Image Manipulation Program", u"UXTerm"}));
    EXPECT_TRUE(plan.warnings.isEmpty());
}

TEST_F(SessionPlannerTest, BlocksAnUnknownApplicationAsItIsSpelledAndSaysSo) {
    auto wanted = request();
    wanted.apps = {u"Minecraft"_s, u"XTerm"_s};
    const auto plan = planned(planner.plan(wanted, categories));
    EXPECT_EQ(plan.session.blockedApps, texts({u"Minecraft", u"XTerm"}));
    EXPECT_EQ(
        plan.warnings,
        QStringList{u"no application “Minecraft” is installed; it is blocked all the same"_s});
}

TEST_F(SessionPlannerTest, KnowsApplicationsThatRunWithoutBeingInstalled) {
    workspace.launch(u"Own Tool"_s, {.bundleIdentifier = u"org.example.Tool"_s});
    auto wanted = request();
    wanted.apps = {u"org.example.tool"_s};
    const auto plan = planned(planner.plan(wanted, categories));
    EXPECT_EQ(plan.session.blockedApps, texts({u"Own Tool"}));
    EXPECT_TRUE(plan.warnings.isEmpty());
}

TEST_F(SessionPlannerTest, RefusesAnApplicationWithoutAName) {
    auto wanted = request();
    for (const QString& blank : {u""_s, u" \t"_s}) {
        wanted.apps = {u"XTerm"_s, blank};
        EXPECT_EQ(refused(planner.plan(wanted, categories)).kind, Kind::invalidApplication);
    }
}

TEST_F(SessionPlannerTest, TakesWebsitesInAnySpellingAndEachOnce) {
    auto wanted = request();
    wanted.websites = {u"https://www.Example.com/x"_s, u"example.com"_s, u"news.example.org"_s};
    EXPECT_EQ(planned(planner.plan(wanted, categories)).session.blockedWebsites,
              texts({u"example.com", u"news.example.org"}));
}

TEST_F(SessionPlannerTest, RefusesWhatCannotBeAWebsite) {
    auto wanted = request();
    for (const auto& text : {u"youtube"_s, u""_s, u"two words.com"_s, u".com"_s}) {
        wanted.websites = {text};
        EXPECT_EQ(refused(planner.plan(wanted, categories)),
                  (RemoteError{Kind::invalidWebsite, u"“"_s + text + u"” is not a website"_s}));
    }
}

TEST_F(SessionPlannerTest, WarnsWhereApplicationsCannotBeHidden) {
    const NullWorkspace nowhere;
    const SessionPlanner helpless(installed, nowhere);
    auto wanted = request();
    EXPECT_TRUE(planned(helpless.plan(wanted, categories)).warnings.isEmpty());
    wanted.apps = {u"XTerm"_s};
    EXPECT_EQ(planned(helpless.plan(wanted, categories)).warnings,
              QStringList{u"applications cannot be hidden on this desktop"_s});
}

TEST_F(SessionPlannerTest, PlansAPresetWithTheCategoriesOfToday) {
    categories[0].websites = texts({u"news.example"});
    const auto plan =
        planned(planner.plan({.goal = u" Read "_s, .preset = u"Deep work"_s, .duration = 0},
                             {preset(u"Other"_s), preset(u"Deep work"_s)}, categories));
    EXPECT_EQ(plan.session.goal, u"Read"_s);
    EXPECT_EQ(plan.session.duration, 3000);
    EXPECT_EQ(plan.session.blockCategories, std::vector{categories[0]});
    EXPECT_EQ(plan.session.blockedApps, texts({u"XTerm"}));
    EXPECT_EQ(plan.session.blockedWebsites, texts({u"example.com"}));
}

TEST_F(SessionPlannerTest, OverridesTheLengthOfAPreset) {
    const std::vector presets = {preset(u"Deep work"_s)};
    SessionPlanner::PresetRequest wanted = {u"Read"_s, u"deep work"_s, 60};
    EXPECT_EQ(planned(planner.plan(wanted, presets, categories)).session.duration, 60);
    wanted.duration = -1;
    EXPECT_EQ(refused(planner.plan(wanted, presets, categories)).kind, Kind::invalidDuration);
}

TEST_F(SessionPlannerTest, RefusesAPresetWhoseOwnLengthIsNone) {
    auto empty = preset(u"Empty"_s);
    empty.duration = 0;
    EXPECT_EQ(refused(planner.plan({u"Read"_s, u"Empty"_s, 0}, {empty}, categories)).kind,
              Kind::invalidDuration);
}

TEST_F(SessionPlannerTest, RefusesABlankGoalForAPresetToo) {
    EXPECT_EQ(refused(planner.plan({u" "_s, u"A"_s, 0}, {preset(u"A"_s)}, categories)).kind,
              Kind::emptyGoal);
}

TEST_F(SessionPlannerTest, ListsTheKnownPresetsToWhoeverNamesAnother) {
    const SessionPlanner::PresetRequest wanted = {u"Read"_s, u"C"_s, 0};
    EXPECT_EQ(
        refused(planner.plan(wanted, {preset(u"A"_s), preset(u"B"_s)}, categories)),
        (RemoteError{Kind::unknownPreset, u"there is no preset “C”; the presets are “A”, “B”"_s}));
    EXPECT_EQ(
        refused(planner.plan(wanted, {}, categories)),
        (RemoteError{Kind::unknownPreset, u"there is no preset “C”; there are no presets"_s}));
}

TEST_F(SessionPlannerTest, AsksForTheIdWhereTwoPresetsShareAName) {
    const std::vector presets = {preset(u"A"_s), preset(u"A"_s)};
    const auto error = refused(planner.plan({u"Read"_s, u"A"_s, 0}, presets, categories));
    EXPECT_EQ(error.kind, Kind::ambiguousName);
    const QString second = presets[1].id.toString(QUuid::WithoutBraces);
    EXPECT_THAT(error.message.toStdString(), HasSubstr(second.toUpper().toStdString()));
    EXPECT_EQ(planned(planner.plan({u"Read"_s, second, 0}, presets, categories)).session.duration,
              3000);
}

} // namespace
} // namespace tolvar::test
