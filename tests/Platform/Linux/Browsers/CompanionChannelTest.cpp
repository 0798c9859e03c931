#include "Platform/Linux/Browsers/CompanionChannel.h"

#include "BrowserHost/RandomBytes.h"
#include "Platform/Linux/Browsers/PlayedCompanion.h"
#include "Support/HandClock.h"
#include "Support/NoFurtherFiles.h"
#include "Support/RecordingLog.h"
#include "Support/Texts.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <list>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::Optional;
using testing::SizeIs;

constexpr char list[] = R"({"command":"list"})";
const ActiveTab exampleTab{u"tab 93 of window 4711"_s, u"https://example.com/"_s};

class Companions : public testing::Test {
protected:
    /// A browser that has told its name and which tabs it shows.
    PlayedCompanion browserShowing(int tab, std::string_view url,
                                   const std::string& name = "chromium") {
        PlayedCompanion companion(folder, name);
        companion.say(pictureOf(tab, url));
        EXPECT_EQ(companion.heard(), list);
        return companion;
    }

    bool eventuallyRun(const Texts& browsers) {
        return eventually([&] { return channel.runningBrowsers() == browsers; });
    }

    QTemporaryDir runtime;
    std::string folder = runtime.filePath(u"tolvar"_s).toStdString();
    RecordingLog log;
    HandClock clock;
    CompanionChannel channel{folder, log, clock};
};

TEST_F(Companions, AreBrowsersOnceTheyToldTheirName) {
    PlayedCompanion mute(folder);
    PlayedCompanion firefox(folder, "firefox-esr");
    EXPECT_TRUE(eventuallyRun(texts({u"firefox-esr"})));
    mute.say(R"({"browser":"chromium"})");
    EXPECT_TRUE(eventually([&] { return channel.runningBrowsers().size() == 2; }));
}

TEST_F(Companions, AreAskedWhatTheyShow) {
    PlayedCompanion companion(folder, "chromium");
    EXPECT_EQ(companion.heard(), list);
}

TEST_F(Companions, ShowNothingKnownBeforeTheyTellIt) {
    PlayedCompanion companion(folder, "chromium");
    ASSERT_TRUE(eventuallyRun(texts({u"chromium"})));
    EXPECT_EQ(channel.activeTabs(u"chromium"_s), std::nullopt);
    EXPECT_EQ(channel.activeTabs(u"unknown"_s), std::nullopt);
    EXPECT_EQ(channel.activeTabs(u""_s), std::nullopt);
    companion.say(R"({"shown":[]})");
    EXPECT_TRUE(eventually([&] { return channel.activeTabs(u"chromium"_s).has_value(); }));
}

TEST_F(Companions, ShowWhatTheyToldLast) {
    PlayedCompanion companion = browserShowing(1, "https://first.example/");
    companion.say(pictureOf(93, "https://example.com/"));
    EXPECT_TRUE(eventually(
        [&] { return channel.activeTabs(u"chromium"_s) == std::vector<ActiveTab>{exampleTab}; }));
}

TEST_F(Companions, OfOneNameAreNumbered) {
    PlayedCompanion first(folder, "chromium");
    ASSERT_TRUE(eventuallyRun(texts({u"chromium"})));
    PlayedCompanion second(folder, "chromium");
    ASSERT_TRUE(eventuallyRun(texts({u"chromium", u"chromium 2"})));
    first.hangUp();
    ASSERT_TRUE(eventuallyRun(texts({u"chromium 2"})));
    PlayedCompanion third(folder, "chromium");
    EXPECT_TRUE(eventuallyRun(texts({u"chromium 2", u"chromium"})));
}

TEST_F(Companions, VanishWhenTheyHangUp) {
    PlayedCompanion companion = browserShowing(93, "https://example.com/");
    companion.hangUp();
    EXPECT_TRUE(eventuallyRun({}));
    EXPECT_EQ(channel.activeTabs(u"chromium"_s), std::nullopt);
    channel.redirect({exampleTab}, u"chromium"_s);
}

TEST_F(Companions, TellManyChangesAtOnceOnce) {
    PlayedCompanion companion = browserShowing(1, "https://example.com/1");
    settle();
    int changes = 0;
    const auto subscription = channel.observeChanges([&] { ++changes; });
    for (int tab = 2; tab <= 50; ++tab)
        companion.say(pictureOf(tab, "https://example.com/"));
    ASSERT_TRUE(eventually([&] { return changes > 0; }));
    settle();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(channel.activeTabs(u"chromium"_s)->front().specifier, u"tab 50 of window 4711"_s);
}

TEST_F(Companions, TellWhenTheyVanish) {
    PlayedCompanion companion = browserShowing(1, "https://example.com/");
    settle();
    int changes = 0;
    const auto subscription = channel.observeChanges([&] { ++changes; });
    companion.hangUp();
    EXPECT_TRUE(eventually([&] { return changes == 1; }));
}

TEST_F(Companions, AreToldToBlankTheTabsTheyShow) {
    PlayedCompanion companion(folder, "chromium");
    companion.say(R"({"shown":[{"window":1,"tab":5,"url":"https://example.com/"},)"
                  R"({"window":2,"tab":6,"url":"https://other.example/"},)"
                  R"({"window":3,"tab":7,"url":"https://example.com/"}]})");
    ASSERT_EQ(companion.heard(), list);
    ASSERT_TRUE(eventually([&] { return channel.activeTabs(u"chromium"_s).has_value(); }));
    const auto tabs = *channel.activeTabs(u"chromium"_s);
    channel.redirect({tabs[0], tabs[2]}, u"chromium"_s);
    EXPECT_EQ(companion.heard(), R"({"command":"blank","tabs":[5,7]})");
}

TEST_F(Companions, AreNotToldOfTabsTheyDoNotShow) {
    PlayedCompanion companion = browserShowing(93, "https://example.com/");
    ASSERT_TRUE(eventually([&] { return channel.activeTabs(u"chromium"_s).has_value(); }));
    channel.redirect({{u"tab 8 of window 4711"_s, exampleTab.url}}, u"chromium"_s);
    channel.redirect({exampleTab}, u"chromium"_s);
    EXPECT_EQ(companion.heard(), R"({"command":"blank","tabs":[93]})");
}

TEST_F(Companions, MayBeStuckWithoutHoldingUpAnybody) {
    PlayedCompanion companion = browserShowing(93, "https://example.com/");
    ASSERT_TRUE(eventually([&] { return channel.activeTabs(u"chromium"_s).has_value(); }));
    for (int time = 0; time < 5'000; ++time)
        channel.redirect({exampleTab}, u"chromium"_s);
    companion.say(pictureOf(94, "https://example.com/"));
    const ActiveTab next{u"tab 94 of window 4711"_s, exampleTab.url};
    ASSERT_TRUE(eventually(
        [&] { return channel.activeTabs(u"chromium"_s) == std::vector<ActiveTab>{next}; }));
    channel.redirect({next}, u"chromium"_s);
    int before = 0;
    while (companion.heard() != R"({"command":"blank","tabs":[94]})")
        ASSERT_LT(++before, 5'000);
    EXPECT_LT(before, 4'999) << "all were kept";
}

class WrongWords : public Companions, public testing::WithParamInterface<const char*> {};

TEST_P(WrongWords, EndTheConnectionWithOneLine) {
    PlayedCompanion companion = browserShowing(93, "https://example.com/");
    companion.say(GetParam());
    companion.say(pictureOf(1, "https://later.example/"));
    EXPECT_TRUE(companion.isHungUpOn());
    EXPECT_TRUE(eventuallyRun({}));
    EXPECT_THAT(log.take(), ElementsAre(RecordingLog::Line{
                                u"BrowserChannel"_s, u"Hung up on chromium: a message that is no "
                                                     "picture of the shown tabs"_s}));
}

INSTANTIATE_TEST_SUITE_P(Frames, WrongWords,
                         testing::Values("", "{}", "garbage", R"({"browser":"firefox"})",
                                         R"({"command":"list"})", R"({"shown":[7]})"));

TEST_F(Companions, MustTellTheirNameFirst) {
    PlayedCompanion companion(folder);
    companion.say(pictureOf(1, "https://example.com/"));
    EXPECT_TRUE(companion.isHungUpOn());
    EXPECT_THAT(log.take(),
                ElementsAre(RecordingLog::Line{
                    u"BrowserChannel"_s, u"Hung up on a program: a browser without a name"_s}));
}

TEST_F(Companions, MustTellTheirNameInTime) {
    std::list<PlayedCompanion> silent;
    for (std::size_t count = 0; count < CompanionChannel::mostConnections; ++count) {
        silent.emplace_back(folder);
        settle();
    }
    PlayedCompanion companion(folder, "chromium");
    settle();
    EXPECT_THAT(channel.runningBrowsers(), SizeIs(0)) << "it waits outside";
    clock.advance(Seconds(CompanionChannel::patience.count()));
    EXPECT_TRUE(silent.front().isHungUpOn());
    ASSERT_TRUE(eventuallyRun(texts({u"chromium"})));
    EXPECT_THAT(log.take(), SizeIs(CompanionChannel::mostConnections)) << "one line for each";
    clock.advance(Seconds(CompanionChannel::patience.count()));
    settle();
    EXPECT_EQ(channel.runningBrowsers(), texts({u"chromium"})) << "who told it may stay";
}

TEST_F(Companions, MayNotAnnounceAHugeFrame) {
    PlayedCompanion companion(folder, "chromium");
    companion.sayBytes("\xff\xff\xff\xff");
    EXPECT_TRUE(companion.isHungUpOn());
    EXPECT_THAT(log.take(),
                ElementsAre(RecordingLog::Line{
                    u"BrowserChannel"_s, u"Hung up on chromium: a frame that is too long"_s}));
}

TEST_F(Companions, MaySayAnythingWithoutHarmToTheOthers) {
    PlayedCompanion good = browserShowing(93, "https://example.com/", "firefox");
    RandomBytes random(8);
    for (int life = 0; life < 300; ++life) {
        PlayedCompanion bad(folder, "chromium");
        for (int frame = 0; frame < 20; ++frame)
            bad.say(random.damaged(pictureOf(5, "https://example.com/")));
        bad.sayBytes("\xff\xff\xff\xff");
        ASSERT_TRUE(bad.isHungUpOn());
    }
    EXPECT_TRUE(eventuallyRun(texts({u"firefox"})));
    EXPECT_THAT(channel.activeTabs(u"firefox"_s), Optional(ElementsAre(exampleTab)));
    EXPECT_THAT(log.take(), SizeIs(300)) << "one line for each";
}

TEST_F(Companions, WaitOutsideWhileThereAreTooMany) {
    std::list<PlayedCompanion> companions;
    for (std::size_t count = 0; count < CompanionChannel::mostConnections; ++count) {
        companions.emplace_back(folder, "chromium");
        settle();
    }
    ASSERT_TRUE(eventually(
        [&] { return channel.runningBrowsers().size() == CompanionChannel::mostConnections; }));
    PlayedCompanion late(folder, "firefox");
    settle();
    EXPECT_THAT(channel.runningBrowsers(), SizeIs(CompanionChannel::mostConnections));
    companions.pop_front();
    EXPECT_TRUE(eventually([&] {
        const auto browsers = channel.runningBrowsers();
        return !browsers.empty() && browsers.back() == u"firefox"_s;
    }));
}

TEST_F(Companions, AreLetInLateWhenTooManyFilesWereOpen) {
    browserShowing(93, "https://example.com/", "firefox").hangUp();
    ASSERT_TRUE(eventuallyRun({}));
    settle();
    PlayedCompanion companion(folder, "chromium");
    {
        const NoFurtherFiles limit;
        settle();
    }
    EXPECT_THAT(channel.runningBrowsers(), SizeIs(0));
    EXPECT_TRUE(eventuallyRun(texts({u"chromium"})));
}

TEST_F(Companions, OfAnotherUserAreHungUpOn) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can become somebody else";
    // As if somebody had opened every door.
    ::chmod(runtime.path().toStdString().c_str(), 0755);
    ::chmod(folder.c_str(), 0755);
    ::chmod((folder + "/browser.sock").c_str(), 0666);
    ASSERT_EQ(::seteuid(65534), 0);
    PlayedCompanion stranger(folder, "chromium");
    ASSERT_EQ(::seteuid(0), 0);
    ASSERT_TRUE(stranger.isConnected());
    EXPECT_TRUE(stranger.isHungUpOn());
    EXPECT_THAT(channel.runningBrowsers(), SizeIs(0));
    EXPECT_THAT(log.take(), ElementsAre(RecordingLog::Line{
                                u"BrowserChannel"_s, u"Hung up on another user's program"_s}));
}

TEST_F(Companions, OfASecondProgramAreNoneAndTheFirstKeepsItsOwn) {
    const CompanionChannel second(folder, log, clock);
    const auto lines = log.take();
    ASSERT_THAT(lines, SizeIs(1));
    EXPECT_TRUE(lines[0].message.startsWith(u"Browsers cannot be reached: another program"_s));
    EXPECT_THAT(second.runningBrowsers(), SizeIs(0));
    PlayedCompanion companion(folder, "chromium");
    EXPECT_TRUE(eventuallyRun(texts({u"chromium"})));
}

} // namespace
} // namespace tolvar::test
