#include "Models/BlockCategory.h"

#include "Extensions/HostNames.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using test::Texts;
using test::texts;

TEST(BlockCategory, ShipsSixCategoriesWithTheirApplications) {
    const auto& defaults = BlockCategory::defaults();
    ASSERT_EQ(defaults.size(), 6u);
    const std::vector<std::pair<QString, Texts>> expected = {
        {u"Social Media"_s,
         texts({u"Twitter", u"Facebook", u"Instagram", u"TikTok", u"LinkedIn", u"Reddit"})},
        {u"Shopping"_s, texts({u"Amazon", u"eBay", u"Etsy"})},
        {u"News"_s, texts({u"News", u"Reeder", u"NetNewsWire"})},
        {u"Entertainment"_s, texts({u"YouTube", u"Netflix", u"Spotify", u"Apple TV"})},
        {u"Gaming"_s, texts({u"Steam", u"Discord", u"Epic Games"})},
        {u"Messaging"_s, texts({u"Slack", u"Discord", u"WhatsApp", u"Telegram", u"Messages"})},
    };
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(defaults[i].id, expected[i].first);
        EXPECT_EQ(defaults[i].name, expected[i].first);
        EXPECT_EQ(defaults[i].apps, expected[i].second);
    }
}

TEST(BlockCategory, ShipsNormalisedHosts) {
    const std::vector<std::size_t> counts = {7, 4, 5, 5, 3, 4};
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const auto& category = BlockCategory::defaults()[i];
        EXPECT_EQ(category.websites.size(), counts[i]) << category.id.toStdString();
        for (const auto& host : category.websites)
            EXPECT_EQ(normalizedHost(host), host);
    }
}

TEST(BlockCategory, SharesTheGameStreamingHostBetweenTwoCategories) {
    const auto hasHost = [](std::size_t index, const QString& host) {
        const auto& websites = BlockCategory::defaults()[index].websites;
        return std::find(websites.begin(), websites.end(), host) != websites.end();
    };
    EXPECT_TRUE(hasHost(3, u"twitch.tv"_s));
    EXPECT_TRUE(hasHost(4, u"twitch.tv"_s));
}

TEST(BlockCategory, IsFoundByItsExactId) {
    ASSERT_NE(BlockCategory::builtIn(u"Gaming"_s), nullptr);
    EXPECT_EQ(*BlockCategory::builtIn(u"Gaming"_s), BlockCategory::defaults()[4]);
    EXPECT_EQ(BlockCategory::builtIn(u"gaming"_s), nullptr);
    EXPECT_EQ(BlockCategory::builtIn(u""_s), nullptr);
}

TEST(BlockCategory, IsMadeFromABareName) {
    EXPECT_EQ(BlockCategory::fromBareName(u"Gaming"_s), BlockCategory::defaults()[4]);
    const BlockCategory work{.id = u"Work"_s, .name = u"Work"_s, .apps = {}, .websites = {}};
    EXPECT_EQ(BlockCategory::fromBareName(u"Work"_s), work);
}

TEST(BlockCategory, DiffersFromItsDefaultsOnlyByContents) {
    auto news = BlockCategory::defaults()[2];
    EXPECT_FALSE(news.differsFromDefaults());
    news.name = u"Newspapers"_s;
    std::reverse(news.apps.begin(), news.apps.end());
    std::reverse(news.websites.begin(), news.websites.end());
    news.apps.push_back(news.apps.front());
    EXPECT_FALSE(news.differsFromDefaults());
}

TEST(BlockCategory, DiffersFromItsDefaultsByOneApplicationOrWebsite) {
    auto fewerApps = BlockCategory::defaults()[2];
    fewerApps.apps.pop_back();
    EXPECT_TRUE(fewerApps.differsFromDefaults());
    auto moreWebsites = BlockCategory::defaults()[2];
    moreWebsites.websites.push_back(u"example.com"_s);
    EXPECT_TRUE(moreWebsites.differsFromDefaults());
    auto otherCase = BlockCategory::defaults()[2];
    otherCase.apps[0] = u"news"_s;
    EXPECT_TRUE(otherCase.differsFromDefaults());
}

TEST(BlockCategory, NeverDiffersFromDefaultsThatItDoesNotHave) {
    const BlockCategory own{
        .id = u"Work"_s, .name = u"News"_s, .apps = texts({u"Slack"}), .websites = {}};
    EXPECT_FALSE(own.differsFromDefaults());
}

} // namespace
} // namespace tolvar
