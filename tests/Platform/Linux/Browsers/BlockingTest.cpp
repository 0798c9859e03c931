#include "BrowserHost/HostProcess.h"
#include "Platform/Linux/Browsers/CompanionChannel.h"
#include "Platform/Linux/Browsers/PlayedCompanion.h"
#include "Services/WebsiteBlockerService.h"
#include "Support/HandClock.h"
#include "Support/RecordingAlert.h"
#include "Support/RecordingLog.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

constexpr char list[] = R"({"command":"list"})";
constexpr char blank[] = R"({"command":"blank","tabs":[93]})";

/// The whole road from the blocker to the extension, which is the test, over the real host.
class BlockingInABrowser : public testing::Test {
protected:
    void SetUp() override {
        blocker.blockWebsite(u"example.com"_s);
        EXPECT_EQ(told(), list);
    }

    /// What the extension is told next.
    std::optional<std::string> told() {
        std::optional<std::string> frame;
        eventually([&] { return (frame = host.heardByNow()).has_value(); });
        return frame;
    }

    /// Says a picture that changes nothing and awaits its arrival, by another window's tab.
    bool settlesWith(int tab, std::string_view url) {
        host.say(pictureOf(tab, url));
        const auto address = QString::fromUtf8(url.data(), static_cast<qsizetype>(url.size()));
        return eventually([&] {
            const auto browsers = channel.runningBrowsers();
            const auto tabs = browsers.empty() ? std::nullopt : channel.activeTabs(browsers[0]);
            return tabs && tabs->size() == 1 && tabs->front().url == address;
        });
    }

    QTemporaryDir runtime;
    RecordingLog log;
    Journal journal;
    HandClock clock;
    RecordingAlert alert{journal};
    CompanionChannel channel{runtime.filePath(u"tolvar"_s).toStdString(), log, clock};
    WebsiteBlockerService blocker{{.browsers = channel, .timers = clock, .alert = alert}};
    HostProcess host{runtime.path().toStdString()};
};

TEST_F(BlockingInABrowser, SendsABlockedPageAwayAtOnce) {
    host.say(pictureOf(93, "https://www.example.com/r/x"));
    EXPECT_EQ(told(), blank);
    EXPECT_EQ(journal.take(), texts({u"alert site example.com"}));
}

TEST_F(BlockingInABrowser, SendsAPageThatStaysAwayAgainAtEachLookButAlertsOnce) {
    host.say(pictureOf(93, "https://example.com/"));
    ASSERT_EQ(told(), blank);
    for (int look = 0; look < 3; ++look) {
        clock.advance(2);
        EXPECT_EQ(told(), blank);
    }
    EXPECT_EQ(journal.take(), texts({u"alert site example.com"}));
}

TEST_F(BlockingInABrowser, SendsAPageThatStaysAwayAgainAtTheNextEvent) {
    host.say(pictureOf(93, "https://example.com/"));
    ASSERT_EQ(told(), blank);
    host.say(pictureOf(93, "https://example.com/"));
    EXPECT_EQ(told(), blank);
    EXPECT_EQ(journal.take(), texts({u"alert site example.com"}));
}

TEST_F(BlockingInABrowser, AlertsAnewOnlyWhenThePageComesBack) {
    host.say(pictureOf(93, "https://example.com/"));
    ASSERT_EQ(told(), blank);
    ASSERT_TRUE(settlesWith(93, "about:blank"));
    settle();
    host.say(pictureOf(93, "https://example.com/"));
    EXPECT_EQ(told(), blank);
    EXPECT_EQ(journal.take(), texts({u"alert site example.com", u"alert site example.com"}));
}

TEST_F(BlockingInABrowser, LeavesOtherPagesAlone) {
    ASSERT_TRUE(settlesWith(93, "https://notexample.com/"));
    settle();
    clock.advance(2);
    EXPECT_EQ(host.heardByNow(), std::nullopt);
    EXPECT_EQ(journal.take(), Texts());
}

TEST_F(BlockingInABrowser, LeavesEverythingAloneWhenNothingIsBlockedAnyMore) {
    blocker.unblockAll();
    ASSERT_TRUE(settlesWith(93, "https://example.com/"));
    settle();
    EXPECT_EQ(host.heardByNow(), std::nullopt);
    EXPECT_EQ(journal.take(), Texts());
}

TEST_F(BlockingInABrowser, SendsAwayWhatWasShownBeforeItWasBlocked) {
    ASSERT_TRUE(settlesWith(93, "https://other.example/"));
    blocker.blockWebsite(u"other.example"_s);
    clock.advance(2);
    EXPECT_EQ(told(), blank);
}

TEST_F(BlockingInABrowser, EndsWithTheBrowser) {
    host.hangUp();
    EXPECT_TRUE(eventually([&] { return channel.runningBrowsers().empty(); }));
    clock.advance(2);
    EXPECT_EQ(journal.take(), Texts());
}

} // namespace
} // namespace tolvar::test
