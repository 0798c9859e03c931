#include "Platform/AppleScript/BrowserScripts.h"

#include "Platform/AppleScript/FakeScriptingSystem.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

#include <limits>

namespace tolvar {

void PrintTo(const ActiveTab& tab, std::ostream* stream) {
    *stream << tab.specifier.toStdString() << " at " << tab.url.toStdString();
}

namespace test {
namespace {

using namespace Qt::StringLiterals;

using Tabs = std::vector<ActiveTab>;

ScriptDescriptor replyOf(const ScriptDescriptor& windows, const ScriptDescriptor& keys,
                         const ScriptDescriptor& urls) {
    return ScriptDescriptor::ofList({windows, keys, urls});
}

/// The specifiers of the tabs in a reply with one window, whose tab is addressed by its id.
Texts specifierOf(const ScriptDescriptor& window, const ScriptDescriptor& key) {
    Texts specifiers;
    for (const auto& tab :
         tabsOfReply(replyOf(ScriptDescriptor::ofList({window}), ScriptDescriptor::ofList({key}),
                             strings({u"https://example.com/"})),
                     TabAddress::byId))
        specifiers.push_back(tab.specifier);
    return specifiers;
}

Texts specifierOf(const ScriptDescriptor& key) {
    return specifierOf(ScriptDescriptor::ofInteger(1), key);
}

TEST(ScriptedBrowsers, AreAskedInThisOrder) {
    Texts identifiers;
    for (const auto& browser : scriptedBrowsers)
        identifiers.push_back(browser.identifier());
    EXPECT_EQ(identifiers,
              texts({u"com.apple.Safari", u"com.google.Chrome", u"company.thebrowser.Browser",
                     u"company.thebrowser.dia", u"net.imput.helium"}));
}

TEST(ReadingScript, AsksABrowserThatKnowsTabsByIndex) {
    EXPECT_EQ(readingScript(scriptedBrowsers[0]).toStdString(),
              R"(tell application id "com.apple.Safari"
    if not running then return {}
    return {id of every window, index of current tab of every window, )"
              "\xc2\xac"
              R"(
        URL of current tab of every window}
end tell)");
}

TEST(ReadingScript, AsksABrowserThatKnowsTabsById) {
    EXPECT_EQ(readingScript(scriptedBrowsers[1]).toStdString(),
              "tell application id \"com.google.Chrome\"\n"
              "    if not running then return {}\n"
              "    return {id of every window, id of active tab of every window, \xc2\xac\n"
              "        URL of active tab of every window}\n"
              "end tell");
}

TEST(ReadingScript, DiffersOnlyInTheNameBetweenBrowsersOfOneKind) {
    const auto chrome = readingScript(scriptedBrowsers[1]);
    for (std::size_t i = 2; i < scriptedBrowsers.size(); ++i)
        EXPECT_EQ(
            readingScript(scriptedBrowsers[i]),
            QString(chrome).replace(u"com.google.Chrome"_s, scriptedBrowsers[i].identifier()));
}

TEST(RedirectingScript, HasOneLineForOneTab) {
    EXPECT_EQ(redirectingScript({{u"tab id 93 of window id 4711"_s, u"https://example.com/"_s}},
                                u"com.google.Chrome"_s),
              u"tell application id \"com.google.Chrome\"\n"
              "    set URL of tab id 93 of window id 4711 to \"about:blank\"\n"
              "end tell"_s);
}

TEST(RedirectingScript, IndentsOnlyTheFirstOfSeveralLines) {
    EXPECT_EQ(redirectingScript({{u"tab 2 of window id 4711"_s, u"https://example.com/a"_s},
                                 {u"tab 1 of window id -3"_s, u"https://example.com/b"_s},
                                 {u"tab 7 of window id 12"_s, u"https://example.com/c"_s}},
                                u"com.apple.Safari"_s),
              u"tell application id \"com.apple.Safari\"\n"
              "    set URL of tab 2 of window id 4711 to \"about:blank\"\n"
              "set URL of tab 1 of window id -3 to \"about:blank\"\n"
              "set URL of tab 7 of window id 12 to \"about:blank\"\n"
              "end tell"_s);
}

TEST(RedirectingScript, TakesASpecifierAsItIs) {
    EXPECT_EQ(redirectingScript({{u"tab id \"%1 %2 \\\" %L1\" of window id 1"_s, u""_s}},
                                u"com.google.Chrome"_s),
              u"tell application id \"com.google.Chrome\"\n"
              "    set URL of tab id \"%1 %2 \\\" %L1\" of window id 1 to \"about:blank\"\n"
              "end tell"_s);
}

TEST(TabsOfReply, AreInTheOrderOfTheWindows) {
    const auto reply = replyOf(integers({4711, 12}), integers({93, 8}),
                               strings({u"https://example.com/", u"about:blank"}));
    EXPECT_EQ(tabsOfReply(reply, TabAddress::byId),
              (Tabs{{u"tab id 93 of window id 4711"_s, u"https://example.com/"_s},
                    {u"tab id 8 of window id 12"_s, u"about:blank"_s}}));
    EXPECT_EQ(tabsOfReply(reply, TabAddress::byIndex),
              (Tabs{{u"tab 93 of window id 4711"_s, u"https://example.com/"_s},
                    {u"tab 8 of window id 12"_s, u"about:blank"_s}}));
}

TEST(TabsOfReply, AreNoneOfABrowserWithoutWindowsOrOneThatDoesNotRun) {
    EXPECT_EQ(tabsOfReply(replyOf(integers({}), integers({}), strings({})), TabAddress::byId),
              Tabs());
    EXPECT_EQ(tabsOfReply(ScriptDescriptor::ofList({}), TabAddress::byId), Tabs());
}

TEST(TabsOfReply, AreNoneUnlessThereAreThreeLists) {
    const auto one = integers({1});
    const auto url = strings({u"https://example.com/"});
    const auto number = ScriptDescriptor::ofInteger(1);
    for (const auto& reply : {
             ScriptDescriptor{},
             number,
             ScriptDescriptor::ofText(u"https://example.com/"_s),
             ScriptDescriptor::ofList({one, one}),
             ScriptDescriptor::ofList({one, one, url, url}),
             ScriptDescriptor::ofList({number, one, url}),
             ScriptDescriptor::ofList({one, one, number}),
             ScriptDescriptor::ofList({number, number, number}),
         })
        EXPECT_EQ(tabsOfReply(reply, TabAddress::byId), Tabs());
}

TEST(TabsOfReply, AreNoneInARecordInsteadOfAList) {
    const auto recordType = DescriptorType{fourCharacterCode("reco")};
    auto reply = replyOf(integers({1}), integers({1}), strings({u"https://example.com/"}));
    ASSERT_EQ(tabsOfReply(reply, TabAddress::byId).size(), 1u);
    auto keysAsRecord = reply;
    keysAsRecord.items[1].type = recordType;
    EXPECT_EQ(tabsOfReply(keysAsRecord, TabAddress::byId), Tabs());
    reply.type = recordType;
    EXPECT_EQ(tabsOfReply(reply, TabAddress::byId), Tabs());
}

TEST(TabsOfReply, AreNoneWhenTheListsAreNotOfOneLength) {
    const auto one = integers({1});
    const auto two = integers({1, 2});
    const auto url = strings({u"https://example.com/"});
    const auto urls = strings({u"https://example.com/", u"https://example.com/"});
    EXPECT_EQ(tabsOfReply(replyOf(two, one, url), TabAddress::byId), Tabs());
    EXPECT_EQ(tabsOfReply(replyOf(one, two, url), TabAddress::byId), Tabs());
    EXPECT_EQ(tabsOfReply(replyOf(one, one, urls), TabAddress::byId), Tabs());
}

TEST(TabsOfReply, LeaveOutATabWithoutUrlAndKeepTheOthers) {
    auto urls = strings({u"https://a.org/", u"", u"https://c.org/"});
    urls.items[1] = {.type = DescriptorType{fourCharacterCode("type")}, .text = {}, .items = {}};
    EXPECT_EQ(
        tabsOfReply(replyOf(integers({1, 2, 3}), integers({4, 5, 6}), urls), TabAddress::byId),
        (Tabs{{u"tab id 4 of window id 1"_s, u"https://a.org/"_s},
              {u"tab id 6 of window id 3"_s, u"https://c.org/"_s}}));
}

TEST(TabsOfReply, LeaveOutATabOrWindowWhoseIdIsNeitherIntegerNorText) {
    const auto good = ScriptDescriptor::ofInteger(5);
    for (const auto* code : {&"doub", &"bool", &"type", &"null", &"obj ", &"list", &"LONG"}) {
        const auto odd = ScriptDescriptor::ofInteger(5, DescriptorType{fourCharacterCode(*code)});
        EXPECT_EQ(specifierOf(odd, good), Texts()) << *code;
        EXPECT_EQ(specifierOf(good, odd), Texts()) << *code;
    }
}

TEST(TabsOfReply, LeaveOutATabWhoseTextCannotBeRead) {
    EXPECT_EQ(specifierOf({.type = DescriptorType::plainText, .text = {}, .items = {}}), Texts());
}

TEST(TabsOfReply, WriteIntegersOfEveryWidthInDecimal) {
    for (const auto* code : {&"shor", &"long", &"comp"})
        EXPECT_EQ(
            specifierOf(ScriptDescriptor::ofInteger(-12, DescriptorType{fourCharacterCode(*code)})),
            texts({u"tab id -12 of window id 1"}))
            << *code;
}

TEST(TabsOfReply, HoldIdsWithin32Bits) {
    using Huge = std::numeric_limits<qint64>;
    const auto huge = [](qint64 value) {
        return specifierOf(ScriptDescriptor::ofInteger(value, DescriptorType::hugeInteger));
    };
    EXPECT_EQ(huge(2147483647), texts({u"tab id 2147483647 of window id 1"}));
    EXPECT_EQ(huge(2147483648), texts({u"tab id 2147483647 of window id 1"}));
    EXPECT_EQ(huge(Huge::max()), texts({u"tab id 2147483647 of window id 1"}));
    EXPECT_EQ(huge(Huge::min()), texts({u"tab id -2147483648 of window id 1"}));
}

TEST(TabsOfReply, QuoteIdsThatAreTextOfAnyKind) {
    for (const auto* code : {&"utxt", &"utf8", &"TEXT"})
        EXPECT_EQ(specifierOf(ScriptDescriptor::ofText(u"B\u00fccher 7"_s,
                                                       DescriptorType{fourCharacterCode(*code)})),
                  texts({u"tab id \"B\u00fccher 7\" of window id 1"}))
            << *code;
    EXPECT_EQ(specifierOf(ScriptDescriptor::ofText(u"w"_s), ScriptDescriptor::ofText(u""_s)),
              texts({u"tab id \"\" of window id \"w\""}));
}

TEST(TabsOfReply, LetNoTextLeaveItsQuotes) {
    EXPECT_EQ(specifierOf(ScriptDescriptor::ofText(u"a\"b"_s)),
              texts({u"tab id \"a\\\"b\" of window id 1"}));
    EXPECT_EQ(specifierOf(ScriptDescriptor::ofText(u"a\\b"_s)),
              texts({u"tab id \"a\\\\b\" of window id 1"}));
    EXPECT_EQ(specifierOf(ScriptDescriptor::ofText(u"a\\\""_s)),
              texts({u"tab id \"a\\\\\\\"\" of window id 1"}));
    EXPECT_EQ(specifierOf(ScriptDescriptor::ofText(u"%1\"%2"_s), ScriptDescriptor::ofInteger(9)),
              texts({u"tab id 9 of window id \"%1\\\"%2\""}));
}

} // namespace
} // namespace test
} // namespace tolvar
