#include "Platform/AppleScript/AppleScriptChannel.h"

#include "Platform/AppleScript/FakeScriptingSystem.h"
#include "Platform/Null/NullScriptingSystem.h"
#include "Support/RecordingLog.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

using Lines = std::vector<RecordingLog::Line>;

class AppleScript : public testing::Test {
protected:
    const QString chrome = u"com.google.Chrome"_s;
    const QString reading = readingScript(scriptedBrowsers[1]);
    RecordingLog log;
    FakeScriptingSystem scripting;
    AppleScriptChannel channel{{.scripting = scripting, .log = log}};

    static Lines websiteBlockerSays(const QString& message) {
        return {{u"WebsiteBlocker"_s, message}};
    }
};

TEST_F(AppleScript, KnowsItsBrowsersAmongWhatRunsAndKeepsTheirOrder) {
    EXPECT_EQ(channel.runningBrowsers(), Texts());
    scripting.running = {u"app.zen"_s, u"net.imput.helium"_s, u"com.google.Chrome"_s,
                         u"com.apple.Safari"_s, u"com.apple.safari"_s};
    EXPECT_EQ(channel.runningBrowsers(),
              texts({u"com.apple.Safari", u"com.google.Chrome", u"net.imput.helium"}));
    EXPECT_EQ(scripting.compiled, Texts());
}

TEST_F(AppleScript, ReadsTheShownTabs) {
    scripting.answers[reading] = ScriptDescriptor::ofList(
        {integers({4711}), integers({93}), strings({u"https://example.com/"})});
    EXPECT_EQ(channel.activeTabs(chrome), (std::vector<ActiveTab>{{u"tab id 93 of window id 4711"_s,
                                                                   u"https://example.com/"_s}}));
}

TEST_F(AppleScript, AddressesTabsAsTheirBrowserWants) {
    const auto safari = u"com.apple.Safari"_s;
    scripting.answers[readingScript(scriptedBrowsers[0])] = ScriptDescriptor::ofList(
        {integers({4711}), integers({2}), strings({u"https://example.com/"})});
    EXPECT_EQ(channel.activeTabs(safari),
              (std::vector<ActiveTab>{{u"tab 2 of window id 4711"_s, u"https://example.com/"_s}}));
}

TEST_F(AppleScript, CompilesTheReadingScriptOfABrowserOnce) {
    channel.activeTabs(chrome);
    channel.activeTabs(u"com.apple.Safari"_s);
    channel.activeTabs(chrome);
    EXPECT_EQ(scripting.compiled, (Texts{reading, readingScript(scriptedBrowsers[0])}));
    EXPECT_EQ(scripting.executed, (Texts{reading, readingScript(scriptedBrowsers[0]), reading}));
    EXPECT_EQ(scripting.executedOnce, Texts());
}

TEST_F(AppleScript, HasNoTabsInAnOddReplyAndSaysNothingOfIt) {
    scripting.answers[reading] = ScriptDescriptor::ofText(u"no windows"_s);
    EXPECT_EQ(channel.activeTabs(chrome), std::vector<ActiveTab>());
}

TEST_F(AppleScript, LogsAScriptThatDoesNotCompileAndTriesAgainAtTheNextCall) {
    scripting.mistakes[reading] = {
        {u"NSAppleScriptErrorNumber"_s, -2741},
        {u"NSAppleScriptErrorMessage"_s, u"Expected \u201cend\u201d."_s}};
    EXPECT_EQ(channel.activeTabs(chrome), std::nullopt);
    EXPECT_EQ(channel.activeTabs(chrome), std::nullopt);
    const RecordingLog::Line line{u"WebsiteBlocker"_s,
                                  u"Compiling com.google.Chrome script failed: "
                                  "{\"NSAppleScriptErrorMessage\":\"Expected \u201cend\u201d.\","
                                  "\"NSAppleScriptErrorNumber\":-2741}"_s};
    EXPECT_EQ(log.take(), (Lines{line, line}));
    EXPECT_EQ(scripting.executed, Texts());

    scripting.mistakes.clear();
    EXPECT_EQ(channel.activeTabs(chrome), std::vector<ActiveTab>());
    EXPECT_EQ(scripting.compiled, (Texts{reading, reading, reading}));
}

TEST_F(AppleScript, LogsAFailureWithoutAReasonAsAnEmptyDictionary) {
    scripting.mistakes[reading] = {};
    channel.activeTabs(chrome);
    EXPECT_EQ(log.take(), websiteBlockerSays(u"Compiling com.google.Chrome script failed: {}"_s));
}

TEST_F(AppleScript, LogsABrowserThatCannotBeReadAndKeepsItsScript) {
    scripting.answers[reading] = ScriptError{{u"NSAppleScriptErrorNumber"_s, -1743}};
    EXPECT_EQ(channel.activeTabs(chrome), std::nullopt);
    EXPECT_EQ(log.take(), websiteBlockerSays(u"Reading com.google.Chrome tabs failed: "
                                             "{\"NSAppleScriptErrorNumber\":-1743}"_s));
    scripting.answers.clear();
    EXPECT_EQ(channel.activeTabs(chrome), std::vector<ActiveTab>());
    EXPECT_EQ(scripting.compiled, Texts{reading});
}

TEST_F(AppleScript, KeepsAFailureOnOneLineOfTheLog) {
    scripting.answers[reading] = ScriptError{{u"Reason"_s, u"first\nsecond \"%1\""_s}};
    channel.activeTabs(chrome);
    EXPECT_EQ(log.take(), websiteBlockerSays(u"Reading com.google.Chrome tabs failed: "
                                             "{\"Reason\":\"first\\nsecond \\\"%1\\\"\"}"_s));
}

TEST_F(AppleScript, RedirectsByAScriptThatIsMadeAnewEachTime) {
    const std::vector<ActiveTab> tabs{{u"tab id 9 of window id 1"_s, u"https://example.com/"_s}};
    channel.redirect(tabs, chrome);
    channel.redirect(tabs, chrome);
    const auto redirecting = redirectingScript(tabs, chrome);
    EXPECT_EQ(scripting.executedOnce, (Texts{redirecting, redirecting}));
    EXPECT_EQ(scripting.compiled, Texts());
}

TEST_F(AppleScript, LogsARedirectThatIsRefused) {
    const std::vector<ActiveTab> tabs{{u"tab id 9 of window id 1"_s, u"https://example.com/"_s}};
    scripting.answers[redirectingScript(tabs, chrome)] =
        ScriptError{{u"NSAppleScriptErrorNumber"_s, -10006}};
    channel.redirect(tabs, chrome);
    EXPECT_EQ(log.take(), websiteBlockerSays(u"Redirecting com.google.Chrome tabs failed: "
                                             "{\"NSAppleScriptErrorNumber\":-10006}"_s));
}

TEST_F(AppleScript, AsksNothingOfABrowserItDoesNotKnow) {
    EXPECT_EQ(channel.activeTabs(u"org.example.Browser"_s), std::nullopt);
    EXPECT_EQ(scripting.compiled, Texts());
}

TEST_F(AppleScript, DoesNotTellOfChanges) {
    EXPECT_FALSE(channel.observeChanges([] {}));
}

TEST(AppleScriptWithoutAScriptingSystem, ReachesNoBrowser) {
    RecordingLog log;
    NullScriptingSystem scripting;
    AppleScriptChannel channel({.scripting = scripting, .log = log});
    EXPECT_EQ(channel.runningBrowsers(), Texts());
    EXPECT_EQ(channel.activeTabs(u"com.apple.Safari"_s), std::nullopt);
    channel.redirect({}, u"com.apple.Safari"_s);
    EXPECT_EQ(log.take().size(), 2u);
}

} // namespace
} // namespace tolvar::test
