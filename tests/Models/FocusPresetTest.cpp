#include "Models/FocusPreset.h"

#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using test::Texts;
using test::texts;

BlockCategory category(const char16_t* id) {
    return {.id = QString::fromUtf16(id), .name = u"Any"_s, .apps = {}, .websites = {}};
}

Texts idsOf(const std::vector<BlockCategory>& categories) {
    Texts ids;
    for (const auto& each : categories)
        ids.push_back(each.id);
    return ids;
}

TEST(FocusPreset, KeepsThePlanOfItsSession) {
    FocusSession session;
    session.goal = u"Write report"_s;
    session.duration = 2100;
    session.blockedApps = texts({u"Slack", u"Zoom"});
    session.blockedWebsites = texts({u"example.com"});
    session.blockCategories = {category(u"News"), category(u"Gaming")};

    const auto preset = FocusPreset::from(session, u"Mornings"_s);

    EXPECT_EQ(preset.sourceSessionId, session.id);
    EXPECT_EQ(preset.name, u"Mornings"_s);
    EXPECT_EQ(preset.duration, 2100);
    EXPECT_EQ(preset.categoryIDs, texts({u"News", u"Gaming"}));
    EXPECT_EQ(preset.customApps, texts({u"Slack", u"Zoom"}));
    EXPECT_EQ(preset.customWebsites, texts({u"example.com"}));
    EXPECT_NE(preset.id, session.id);
    EXPECT_NE(preset.id, FocusPreset::from(session, u"Mornings"_s).id);
}

TEST(FocusPreset, FindsItsCategoriesInTheOrderOfTheStore) {
    FocusPreset preset;
    preset.categoryIDs = texts({u"C", u"A"});
    const std::vector available = {category(u"A"), category(u"B"), category(u"C")};
    EXPECT_EQ(idsOf(preset.categories(available)), texts({u"A", u"C"}));
}

TEST(FocusPreset, SkipsCategoriesThatAreGone) {
    FocusPreset preset;
    preset.categoryIDs = texts({u"Deleted", u"B"});
    EXPECT_EQ(idsOf(preset.categories({category(u"A"), category(u"B")})), texts({u"B"}));
    EXPECT_EQ(idsOf(preset.categories({})), texts({}));
}

TEST(FocusPreset, ComparesCategoryIdsExactly) {
    FocusPreset preset;
    preset.categoryIDs = texts({u"news"});
    EXPECT_EQ(idsOf(preset.categories({category(u"News")})), texts({}));
}

TEST(FocusPreset, StartsASessionOfItsPlanWithTheCategoriesOfToday) {
    FocusPreset preset;
    preset.duration = 900;
    preset.categoryIDs = texts({u"A"});
    preset.customApps = texts({u"Slack"});
    preset.customWebsites = texts({u"example.com"});
    auto today = category(u"A");
    today.apps = texts({u"Added later"});

    const auto session = preset.session(u"Read"_s, {today});

    FocusSession expected;
    expected.id = session.id;
    expected.goal = u"Read"_s;
    expected.duration = 900;
    expected.blockedApps = preset.customApps;
    expected.blockedWebsites = preset.customWebsites;
    expected.blockCategories = {today};
    expected.pauseCount = 0;
    EXPECT_EQ(session, expected);
    EXPECT_NE(session.id, preset.session(u"Read"_s, {today}).id);
}

TEST(FocusPreset, BlocksOnlyCustomItemsWhenAllItsCategoriesAreGone) {
    FocusPreset preset;
    preset.categoryIDs = texts({u"Deleted"});
    preset.customApps = texts({u"Slack"});
    const auto session = preset.session(u"Read"_s, BlockCategory::defaults());
    EXPECT_TRUE(session.blockCategories.empty());
    EXPECT_EQ(session.blockedApps, texts({u"Slack"}));
}

} // namespace
} // namespace tolvar
