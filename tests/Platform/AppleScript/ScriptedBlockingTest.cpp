#include "Platform/AppleScript/AppleScriptChannel.h"
#include "Platform/AppleScript/FakeScriptingSystem.h"
#include "Services/WebsiteBlockerService.h"
#include "Support/HandClock.h"
#include "Support/RecordingAlert.h"
#include "Support/RecordingLog.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

/// Websites blocked in a browser that is told by scripts.
class ScriptedBlocking : public testing::Test {
protected:
    const QString reading = readingScript(scriptedBrowsers[1]);
    Journal journal;
    HandClock clock;
    RecordingLog log;
    RecordingAlert alert{journal};
    FakeScriptingSystem scripting;
    AppleScriptChannel channel{{.scripting = scripting, .log = log}};
    WebsiteBlockerService blocker{{.browsers = channel, .timers = clock, .alert = alert}};

    ScriptedBlocking() {
        scripting.running = {u"com.google.Chrome"_s};
        blocker.blockWebsite(u"example.com"_s);
    }

    /// Windows 1 and 2 show tabs 10 and 20 at these addresses.
    void show(const char16_t* first, const char16_t* second) {
        scripting.answers[reading] = ScriptDescriptor::ofList(
            {integers({1, 2}), integers({10, 20}), strings({first, second})});
    }

    /// The scripts that one poll redirects by.
    Texts redirectsOfOnePoll() {
        scripting.executedOnce.clear();
        clock.advance(2);
        return scripting.executedOnce;
    }
};

TEST_F(ScriptedBlocking, SendsTwoWindowsAwayByOneScriptAndTellsOfTheFirst) {
    show(u"https://www.example.com/r/x", u"http://old.example.com");
    EXPECT_EQ(redirectsOfOnePoll(),
              texts({u"tell application id \"com.google.Chrome\"\n"
                     "    set URL of tab id 10 of window id 1 to \"about:blank\"\n"
                     "set URL of tab id 20 of window id 2 to \"about:blank\"\n"
                     "end tell"}));
    EXPECT_EQ(journal.take(), texts({u"alert site example.com"}));
}

TEST_F(ScriptedBlocking, LeavesALookAlikeHostAndAnEmptyTabAlone) {
    show(u"https://notexample.com", u"");
    EXPECT_EQ(redirectsOfOnePoll(), Texts());
}

TEST_F(ScriptedBlocking, ScriptsNoBrowserThatDoesNotRun) {
    scripting.running = {};
    clock.advance(10);
    EXPECT_EQ(scripting.compiled, Texts());
    EXPECT_EQ(scripting.executed, Texts());
}

TEST_F(ScriptedBlocking, TellsOnceOfATabThatStaysAlsoAcrossPollsThatFail) {
    show(u"https://example.com", u"https://docs.org");
    EXPECT_EQ(redirectsOfOnePoll().size(), 1u);
    EXPECT_EQ(journal.take(), texts({u"alert site example.com"}));

    scripting.answers[reading] = ScriptError();
    EXPECT_EQ(redirectsOfOnePoll(), Texts());
    EXPECT_EQ(log.take().size(), 1u);

    show(u"https://example.com", u"https://docs.org");
    EXPECT_EQ(redirectsOfOnePoll().size(), 1u);
    EXPECT_EQ(journal.take(), Texts());
}

TEST_F(ScriptedBlocking, TellsAgainOfATabAfterAReplyWithoutIt) {
    show(u"https://example.com", u"https://docs.org");
    redirectsOfOnePoll();
    journal.take();
    scripting.answers[reading] = ScriptDescriptor::ofText(u"odd"_s);
    EXPECT_EQ(redirectsOfOnePoll(), Texts());
    show(u"https://example.com", u"https://docs.org");
    redirectsOfOnePoll();
    EXPECT_EQ(journal.take(), texts({u"alert site example.com"}));
}

} // namespace
} // namespace tolvar::test
