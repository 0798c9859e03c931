#include "Platform/Linux/Browsers/CompanionMessages.h"

#include "BrowserHost/Commands.h"
#include "BrowserHost/RandomBytes.h"
#include "Support/Texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using namespace CompanionMessages;
using testing::ElementsAre;
using testing::Optional;

std::string shown(const std::string& tabs) {
    return R"({"shown":[)" + tabs + "]}";
}

std::string tab(const std::string& window, const std::string& number,
                const std::string& url = R"("https://example.com/")") {
    return R"({"window":)" + window + R"(,"tab":)" + number + R"(,"url":)" + url + "}";
}

std::string repeated(const std::string& text, int count) {
    std::string list = text;
    while (--count > 0)
        list += "," + text;
    return list;
}

TEST(CompanionMessages, TellABrowsersName) {
    EXPECT_EQ(browserName(R"({"browser":"firefox-esr"})"), u"firefox-esr"_s);
    EXPECT_EQ(browserName(R"( { "browser" : "Chromium_1.2+x" } )"), u"Chromium_1.2+x"_s);
}

TEST(CompanionMessages, TellNoNameInAnyOtherWay) {
    for (const char* text :
         {"", "{}", "[]", "null", R"("chromium")", R"({"browser":7})", R"({"browser":""})",
          R"({"browser":"a b"})", R"({"browser":"a\nb"})", R"({"browser":"b\u00fccher"})",
          R"({"browser":"a","more":1})", R"({"name":"a"})", R"({"browser":"a"}x)",
          "{\"browser\":\"\xff\"}",
          R"({"browser":"12345678901234567890123456789012345678901234567890123456789012345"})"})
        EXPECT_EQ(browserName(text), std::nullopt) << text;
}

TEST(CompanionMessages, TellTheShownTabs) {
    EXPECT_THAT(shownTabs(shown("")), Optional(testing::IsEmpty()));
    EXPECT_THAT(shownTabs(shown(tab("4711", "93") + "," + tab("0", "999999999999999", R"("")"))),
                Optional(ElementsAre(ShownTab{4711, 93, u"https://example.com/"_s},
                                     ShownTab{0, 999999999999999, u""_s})));
}

TEST(CompanionMessages, LeaveOutATabThatHasNoNumber) {
    EXPECT_THAT(shownTabs(shown(tab("-1", "-1") + "," + tab("-1", "5"))),
                Optional(ElementsAre(ShownTab{-1, 5, u"https://example.com/"_s})));
}

TEST(CompanionMessages, TellNoTabsInAnyOtherWay) {
    for (const std::string& text : {std::string(),
                                    std::string("{}"),
                                    std::string("null"),
                                    std::string(R"({"shown":null})"),
                                    std::string(R"({"shown":{}})"),
                                    std::string(R"({"shown":[],"more":1})"),
                                    std::string(R"({"browser":"firefox"})"),
                                    shown("7"),
                                    shown("[]"),
                                    shown("{}"),
                                    shown(tab("1.5", "2")),
                                    shown(tab("1", "2.5")),
                                    shown(tab("1", "-2")),
                                    shown(tab("1", R"("2")")),
                                    shown(tab("1", "1000000000000000")),
                                    shown(tab("1", "1e300")),
                                    shown(tab("1", "true")),
                                    shown(tab("1", "2", "null")),
                                    shown(tab("1", "2", "7")),
                                    shown(R"({"window":1,"tab":2})"),
                                    shown(R"({"window":1,"tab":2,"url":"","title":""})"),
                                    shown(tab("1", "2")) + "x"})
        EXPECT_EQ(shownTabs(text), std::nullopt) << text;
}

TEST(CompanionMessages, TellOfNoMoreTabsThanCanBe) {
    EXPECT_TRUE(shownTabs(shown(repeated(tab("1", "2"), mostTabs))));
    EXPECT_FALSE(shownTabs(shown(repeated(tab("1", "2"), mostTabs + 1))));
}

TEST(CompanionMessages, OutliveAnyNesting) {
    EXPECT_EQ(shownTabs(R"({"shown":)" + std::string(500'000, '[')), std::nullopt);
    EXPECT_EQ(shownTabs(std::string(500'000, '{')), std::nullopt);
}

TEST(CompanionMessages, AreReadStrictlyHoweverTheyAreDamaged) {
    RandomBytes random(6);
    const std::string good = shown(tab("4711", "93") + "," + tab("12", "5"));
    int read = 0;
    for (int input = 0; input < 30'000; ++input) {
        const auto tabs = shownTabs(random.damaged(good));
        read += tabs ? 1 : 0;
        for (const ShownTab& found : tabs.value_or(std::vector<ShownTab>()))
            ASSERT_TRUE(found.tab >= 0 && found.tab < 1'000'000'000'000'000 && found.window >= -1);
        browserName(random.damaged(R"({"browser":"chromium"})"));
    }
    EXPECT_GT(read, 100);
    EXPECT_LT(read, 29'000);
}

TEST(CompanionMessages, AreReadFromAnyBytes) {
    RandomBytes random(7);
    for (int input = 0; input < 20'000; ++input) {
        const std::string bytes = random.bytes(random.below(80));
        ASSERT_EQ(shownTabs(bytes), std::nullopt);
        ASSERT_EQ(browserName(bytes), std::nullopt);
    }
}

TEST(CompanionMessages, CommandWhatTheHostPermits) {
    EXPECT_TRUE(isPermittedCommand(listCommand()));
    EXPECT_EQ(blankCommand({93, 94}), R"({"command":"blank","tabs":[93,94]})");
    EXPECT_TRUE(isPermittedCommand(blankCommand({93, 94})));
    EXPECT_TRUE(isPermittedCommand(
        blankCommand(std::vector<qint64>(mostTabs, qint64{999'999'999'999'999}))));
}

TEST(CompanionMessages, NameATabByItselfAndItsWindow) {
    EXPECT_EQ(activeTab({4711, 93, u"https://example.com/"_s}),
              (ActiveTab{u"tab 93 of window 4711"_s, u"https://example.com/"_s}));
}

} // namespace
} // namespace tolvar::test
