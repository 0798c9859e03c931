#include "Views/Presets/BlockedSummary.h"

#include "Platform/Null/NullIconThemeSettings.h"
#include "Platform/Null/NullWorkspace.h"
#include "Support/FakeInstalledApplications.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Presets/BlockedSummaryRow.h"
#include "Views/Presets/PresetCardContent.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

const BlockCategory games{
    u"Games"_s, u"Games"_s, {u"Steam"_s, u"Chess"_s}, {u"games.org"_s, u"chess.org"_s}};
const BlockCategory chat{u"Chat"_s, u"Chat"_s, {u"Slack"_s, u"Chess"_s}, {u"chess.org"_s}};

TEST(BlockedSummaries, NameEveryAppOnceAndCountEverySiteOnce) {
    BlockedSummaries summaries;
    const BlockedSummary& all =
        summaries.of({u"Slack"_s, u"Mail"_s}, {u"news.org"_s}, {games, chat});
    EXPECT_EQ(all.appNames, (QStringList{u"Chess"_s, u"Mail"_s, u"Slack"_s, u"Steam"_s}));
    EXPECT_EQ(all.websiteCount, 3);
}

TEST(BlockedSummaries, ResolveAChoiceOnce) {
    BlockedSummaries summaries;
    for (int time = 0; time < 3; ++time) {
        summaries.of({}, {}, {games});
        summaries.of({u"Mail"_s}, {}, {games, chat});
    }
    EXPECT_EQ(summaries.resolved(), 2);
}

TEST(BlockedSummaries, TellCategoriesOfOneNameApartByWhatTheyHold) {
    BlockedSummaries summaries;
    BlockCategory later = games;
    later.apps.push_back(u"Go"_s);
    EXPECT_EQ(summaries.of({}, {}, {games}).appNames.size(), 2);
    EXPECT_EQ(summaries.of({}, {}, {later}).appNames.size(), 3);
    EXPECT_EQ(summaries.of({}, {}, {games}).appNames.size(), 2);
}

TEST(BlockedSummaries, TellAnAppFromAWebsiteOfTheSameName) {
    BlockedSummaries summaries;
    EXPECT_EQ(summaries.of({u"x"_s}, {}, {}), (BlockedSummary{{u"x"_s}, 0}));
    EXPECT_EQ(summaries.of({}, {u"x"_s}, {}), (BlockedSummary{{}, 1}));
}

TEST(BlockedSummaries, ForgetRatherThanGrow) {
    BlockedSummaries summaries;
    const int many = static_cast<int>(BlockedSummaries::capacity) + 1;
    for (int app = 0; app < many; ++app)
        summaries.of({QString::number(app)}, {}, {});
    EXPECT_EQ(summaries.resolved(), many);
    summaries.of({u"0"_s}, {}, {});
    EXPECT_EQ(summaries.resolved(), many + 1);
}

TEST(BlockedSummaryRow, CountsSitesInWords) {
    EXPECT_EQ((BlockedSummaryRow{.websiteCount = 0}.sitesText()), u"");
    EXPECT_EQ((BlockedSummaryRow{.websiteCount = -1}.sitesText()), u"");
    EXPECT_EQ((BlockedSummaryRow{.websiteCount = 1}.sitesText()), u"1 site");
    EXPECT_EQ((BlockedSummaryRow{.websiteCount = 3}.sitesText()), u"3 sites");
}

TEST(BlockedSummaryRow, JoinsTheSitesToTheIcons) {
    const QStringList app{u"Slack"_s};
    EXPECT_EQ((BlockedSummaryRow{.appNames = app, .websiteCount = 1}.sitesText()), u"and 1 site");
    EXPECT_EQ((BlockedSummaryRow{.appNames = app, .websiteCount = 3}.sitesText()), u"and 3 sites");
    EXPECT_EQ((BlockedSummaryRow{.appNames = app, .websiteCount = 0}.sitesText()), u"");
    EXPECT_EQ((BlockedSummaryRow{.appNames = app, .websiteCount = 3, .maxIcons = 0}.sitesText()),
              u"3 sites");
}

class ShownApps : public testing::Test {
protected:
    FakeInstalledApplications installed;
    NullWorkspace workspace;
    NullIconThemeSettings theme;
    ApplicationIcons icons{{installed, workspace, theme}};
};

TEST_F(ShownApps, AreAsManyAsThereMayBe) {
    const BlockedSummaryRow row{.appNames = {u"A"_s, u"B"_s, u"C"_s}, .maxIcons = 2};
    EXPECT_EQ(row.shownApps(icons), (QStringList{u"A"_s, u"B"_s}));
}

TEST_F(ShownApps, BeginWithThoseThatHaveAnIcon) {
    installed.applications = {{u"c"_s, u"C"_s, QStringLiteral(ICONS) + u"/chat.svg"_s}};
    const BlockedSummaryRow row{.appNames = {u"A"_s, u"B"_s, u"C"_s}, .maxIcons = 2};
    EXPECT_EQ(row.shownApps(icons), (QStringList{u"C"_s, u"A"_s}));
}

TEST_F(ShownApps, AreKnownUnderThePointer) {
    const BlockedSummaryRow row{.appNames = {u"A"_s, u"B"_s}, .iconSize = 20};
    const QRectF line(10, 0, 200, 30);
    EXPECT_EQ(row.appAt({12, 15}, line, icons, Qt::LeftToRight), u"A");
    EXPECT_EQ(row.appAt({35, 15}, line, icons, Qt::LeftToRight), u"B");
    EXPECT_EQ(row.appAt({80, 15}, line, icons, Qt::LeftToRight), u"");
    EXPECT_EQ(row.appAt({208, 15}, line, icons, Qt::RightToLeft), u"A");
}

class PresetCardContentTest : public testing::Test {
protected:
    PresetCardContent content(const std::vector<BlockCategory>& available) {
        return PresetCardContent::of(preset, summaries, available);
    }

    FocusPreset preset{.sourceSessionId = {},
                       .name = u" Deep\nwork "_s,
                       .duration = 90 * 60,
                       .categoryIDs = {u"Games"_s, u"Gone"_s},
                       .customApps = {u"Mail"_s},
                       .customWebsites = {}};
    BlockedSummaries summaries;
};

TEST_F(PresetCardContentTest, SaysWhatThePresetIs) {
    const PresetCardContent made = content({chat, games});
    EXPECT_EQ(made.name, u"Deep work");
    EXPECT_EQ(made.duration, u"1h 30m");
    EXPECT_EQ(made.blocked.appNames, (QStringList{u"Chess"_s, u"Mail"_s, u"Steam"_s}));
    EXPECT_EQ(made.spokenText(), u"1h 30m. Blocks Chess, Mail, Steam, and 2 sites");
}

TEST_F(PresetCardContentTest, ShowsItsOwnAppsWhereItsCategoriesAreGone) {
    EXPECT_EQ(content({}).blocked.appNames, QStringList{u"Mail"_s});
    preset.customApps.clear();
    EXPECT_TRUE(content({}).blocked.isEmpty());
    EXPECT_EQ(content({}).spokenText(), u"1h 30m");
}

} // namespace
} // namespace tolvar::test
