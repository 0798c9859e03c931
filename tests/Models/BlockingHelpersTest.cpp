#include "Models/BlockingHelpers.h"

#include "Extensions/HostNames.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using BlockingHelpers::resolvedItems;
using test::Texts;
using test::texts;

TEST(ResolvedItems, AreNoneForAnEmptyChoice) {
    EXPECT_EQ(resolvedItems({}, {}, &BlockCategory::apps), Texts());
    EXPECT_EQ(resolvedItems({}, {BlockCategory()}, &BlockCategory::websites), Texts());
}

TEST(ResolvedItems, ListAnItemOnceHoweverOftenItIsChosen) {
    const std::vector categories = {BlockCategory::fromBareName(u"Gaming"_s),
                                    BlockCategory::fromBareName(u"Messaging"_s)};
    EXPECT_EQ(resolvedItems(texts({u"Discord", u"Discord"}), categories, &BlockCategory::apps),
              texts({u"Discord", u"Epic Games", u"Messages", u"Slack", u"Steam", u"Telegram",
                     u"WhatsApp"}));
}

TEST(ResolvedItems, TakeTheListThatIsAskedFor) {
    const BlockCategory category{.id = u"Work"_s,
                                 .name = u"Work"_s,
                                 .apps = texts({u"Slack"}),
                                 .websites = texts({u"slack.com"})};
    EXPECT_EQ(resolvedItems({}, {category}, &BlockCategory::apps), texts({u"Slack"}));
    EXPECT_EQ(resolvedItems({}, {category}, &BlockCategory::websites), texts({u"slack.com"}));
}

TEST(ResolvedItems, TellUpperFromLowerCase) {
    EXPECT_EQ(resolvedItems(texts({u"slack", u"Slack"}), {}, &BlockCategory::apps),
              texts({u"Slack", u"slack"}));
}

TEST(ResolvedItems, AreSortedByScalarsNotByLanguage) {
    EXPECT_EQ(
        resolvedItems(
            texts({u"arc", u"\U0001F3F0", u"\uE000", u"Zoom", u"App 2", u"App 10", u"\u00C4pfel"}),
            {}, &BlockCategory::apps),
        texts({u"App 10", u"App 2", u"Zoom", u"arc", u"\u00C4pfel", u"\uE000", u"\U0001F3F0"}));
}

TEST(ResolvedItems, AreNotNormalised) {
    const BlockCategory category{
        .id = u"A"_s, .name = u"A"_s, .apps = {}, .websites = texts({u"example.com"})};
    const auto items =
        resolvedItems(texts({u" WWW.Example.com ", u"  "}), {category}, &BlockCategory::websites);
    EXPECT_EQ(items, texts({u"  ", u" WWW.Example.com ", u"example.com"}));
    EXPECT_EQ(normalizedHost(items[0]), u""_s);
    EXPECT_EQ(normalizedHost(items[1]), normalizedHost(items[2]));
}

} // namespace
} // namespace tolvar
