#include "BrowserExtensionIds.h"
#include "BrowserHost/HostProcess.h"
#include "BrowserHost/PlayedApp.h"
#include "BrowserHost/RandomBytes.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <thread>
#include <vector>

namespace tolvar::test {
namespace {

using namespace std::chrono_literals;

constexpr char greeting[] = R"({"browser":"test_browser_host"})";
constexpr char list[] = R"({"command":"list"})";
constexpr char blank[] = R"({"command":"blank","tabs":[93]})";
constexpr char picture[] = R"({"shown":[{"window":4711,"tab":93,"url":"https://example.com/"}]})";

std::string prefix(std::uint32_t length) {
    return {reinterpret_cast<const char*>(&length), sizeof length};
}

std::string repeatedFrame(std::string_view content, int count) {
    std::string frames;
    while (count-- > 0)
        frames.append(prefix(static_cast<std::uint32_t>(content.size()))).append(content);
    return frames;
}

class BrowserHost : public testing::Test {
protected:
    /// A host and a program that have found each other.
    void connectBoth() {
        app.emplace(runtime);
        host.emplace(runtime);
        ASSERT_TRUE(app->letIn());
        ASSERT_EQ(app->heard(), greeting);
    }

    /// Both ways work.
    void expectToCarry() {
        app->say(list);
        EXPECT_EQ(host->heard(), list);
        host->say(picture);
        EXPECT_EQ(app->heard(), picture);
    }

    QTemporaryDir folder;
    std::string runtime = folder.path().toStdString();
    std::optional<PlayedApp> app;
    std::optional<HostProcess> host;
};

TEST_F(BrowserHost, TellsTheBrowsersNameAndCarriesBothWays) {
    connectBoth();
    expectToCarry();
    app->say(blank);
    EXPECT_EQ(host->heard(), blank);
}

TEST_F(BrowserHost, IsStartedByFirefoxToo) {
    app.emplace(runtime);
    const std::string manifest = "/usr/lib/mozilla/native-messaging-hosts/app.tolvar.browser.json";
    HostProcess ofFirefox(runtime, {manifest, firefoxExtensionId});
    ASSERT_TRUE(app->letIn());
    EXPECT_EQ(app->heard(), greeting);
}

TEST_F(BrowserHost, EndsWhenItIsStartedForAnotherExtension) {
    HostProcess other(runtime, {"chrome-extension://aaaabbbbccccddddeeeeffffgggghhhh/"});
    EXPECT_EQ(other.status(), 2);
    HostProcess foreign(runtime, {"/manifest.json", "other@example.com"});
    EXPECT_EQ(foreign.status(), 2);
    HostProcess nobody(runtime, {});
    EXPECT_EQ(nobody.status(), 2);
}

TEST_F(BrowserHost, EndsWithItsBrowser) {
    connectBoth();
    host->hangUp();
    EXPECT_EQ(host->status(), 0);
    EXPECT_TRUE(app->isLeft());
}

TEST_F(BrowserHost, EndsWithItsBrowserWhileItWaitsForTheProgram) {
    host.emplace(runtime);
    host->awaitSleep();
    host->hangUp();
    EXPECT_EQ(host->status(), 0);
}

TEST_F(BrowserHost, EndsWhenTheBrowserReadsNoMore) {
    connectBoth();
    host->stopReading();
    EXPECT_EQ(host->status(), 0);
}

TEST_F(BrowserHost, FindsAProgramThatStartsLater) {
    host.emplace(runtime);
    host->awaitSleep();
    app.emplace(runtime);
    ASSERT_TRUE(app->letIn());
    EXPECT_EQ(app->heard(), greeting);
    expectToCarry();
}

TEST_F(BrowserHost, FindsTheNextProgramAfterOneWasKilledAgainAndAgain) {
    connectBoth();
    std::vector<std::chrono::duration<double>> delays;
    for (int death = 0; death < 5; ++death) {
        app.reset();
        if (death % 2 == 0)
            host->awaitSleep();
        app.emplace(runtime);
        const auto start = std::chrono::steady_clock::now();
        ASSERT_TRUE(app->letIn());
        delays.emplace_back(std::chrono::steady_clock::now() - start);
        ASSERT_EQ(app->heard(), greeting);
        expectToCarry();
    }
    std::ranges::sort(delays);
    EXPECT_LT(delays[2], 1s);
}

TEST_F(BrowserHost, SleepsWhileThereIsNoProgram) {
    host.emplace(runtime);
    host->awaitSleep();
    const int before = host->wakeUps();
    std::this_thread::sleep_for(500ms);
    EXPECT_EQ(host->wakeUps(), before);
}

TEST_F(BrowserHost, SleepsWhileNothingIsSaid) {
    connectBoth();
    host->awaitSleep();
    const int before = host->wakeUps();
    std::this_thread::sleep_for(500ms);
    EXPECT_EQ(host->wakeUps(), before);
}

TEST_F(BrowserHost, DropsWhatTheExtensionSaysToNobody) {
    host.emplace(runtime);
    host->say(picture);
    host->awaitSleep();
    app.emplace(runtime);
    ASSERT_TRUE(app->letIn());
    EXPECT_EQ(app->heard(), greeting);
    host->say(R"({"shown":[]})");
    EXPECT_EQ(app->heard(), R"({"shown":[]})");
}

TEST_F(BrowserHost, KeepsOnlyTheNewestPictureForAProgramThatIsStuck) {
    connectBoth();
    const std::string large(maximumFrame, ' ');
    for (int count = 0; count < 200; ++count)
        host->say(large);
    host->say("newest");
    host->awaitSleep();
    std::optional<std::string> last;
    int received = 0;
    for (auto frame = app->heard(); frame; frame = app->heard(), ++received) {
        last = frame;
        if (last == "newest")
            break;
    }
    EXPECT_EQ(last, "newest");
    EXPECT_LT(received, 4);
}

TEST_F(BrowserHost, KeepsNoCommandsForABrowserThatIsStuck) {
    connectBoth();
    constexpr std::size_t moreThanPipesHold = 4 * maximumFrame;
    const std::string commands = repeatedFrame(blank, 1000);
    std::size_t taken = 0;
    // Until nothing more is taken, though the host has had its time.
    for (std::size_t before = 1; before != taken && taken < moreThanPipesHold;) {
        before = taken;
        taken += app->sayWithoutWaiting(std::string_view(commands).substr(taken % commands.size()));
        host->awaitSleep();
    }
    EXPECT_LT(taken, moreThanPipesHold);
    host->hangUp();
    EXPECT_EQ(host->status(), 0);
}

class AHostileProgram : public BrowserHost, public testing::WithParamInterface<const char*> {};

TEST_P(AHostileProgram, IsHungUpOnAndNotHeard) {
    connectBoth();
    app->say(GetParam());
    app->say(list);
    EXPECT_TRUE(app->isLeft());
    EXPECT_EQ(host->heardByNow(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Commands, AHostileProgram,
                         testing::Values("", "{}", "garbage", R"({"command":"open"})",
                                         R"({"command":"blank","tabs":[]})",
                                         R"({"command":"list","more":1})",
                                         R"({"command":"blank","tabs":[1],"url":"https://a.b/"})"));

TEST_F(BrowserHost, HangsUpOnAProgramThatAnnouncesAHugeFrame) {
    connectBoth();
    app->sayBytes(prefix(maximumFrame + 1));
    EXPECT_TRUE(app->isLeft());
    EXPECT_EQ(host->heardByNow(), std::nullopt);
}

TEST_F(BrowserHost, PassesGoodCommandsBeforeABadOne) {
    connectBoth();
    app->say(list);
    app->say(blank);
    app->say("bad");
    EXPECT_TRUE(app->isLeft());
    EXPECT_EQ(host->heard(), list);
    EXPECT_EQ(host->heard(), blank);
}

TEST_F(BrowserHost, PassesNothingButCommandsOfAProgramThatSaysAnything) {
    app.emplace(runtime);
    host.emplace(runtime);
    RandomBytes random(4);
    for (int life = 0; life < 20; ++life) {
        app.emplace(runtime);
        ASSERT_TRUE(app->letIn());
        for (int frame = 0; frame < 50; ++frame)
            app->say(random.damaged(blank));
        app->say("the end");
        ASSERT_TRUE(app->isLeft());
    }
    host->hangUp();
    while (const auto command = host->heard())
        EXPECT_TRUE(command == list || command->starts_with(R"({"command":"blank","tabs":[)"))
            << *command;
    EXPECT_EQ(host->status(), 0);
}

TEST_F(BrowserHost, AsksAProgramThatAlwaysHangsUpEverMoreRarely) {
    app.emplace(runtime);
    host.emplace(runtime);
    const auto start = std::chrono::steady_clock::now();
    for (int time = 0; time < 4; ++time) {
        ASSERT_TRUE(app->letIn());
        app->hangUp();
    }
    // After 250, 500 and 1000 ms.
    EXPECT_GE(std::chrono::steady_clock::now() - start, 1750ms);
}

TEST_F(BrowserHost, EndsAtAHugeFrameOfTheExtension) {
    connectBoth();
    host->sayBytes(prefix(maximumFrame + 1));
    EXPECT_EQ(host->status(), 1);
}

TEST_F(BrowserHost, OutlivesAnyFramesOfTheExtension) {
    connectBoth();
    RandomBytes random(5);
    for (int frame = 0; frame < 2'000; ++frame)
        host->say(random.bytes(random.below(100)));
    host->say(picture);
    auto last = app->heard();
    while (last && last != picture)
        last = app->heard();
    EXPECT_EQ(last, picture);
}

TEST_F(BrowserHost, ShunsASocketThatOthersMayUse) {
    app.emplace(runtime, 0666);
    host.emplace(runtime);
    host->awaitSleep();
    EXPECT_FALSE(app->isSought());
    ::chmod((runtime + "/tolvar/browser.sock").c_str(), 0600);
    EXPECT_TRUE(app->letIn());
}

TEST_F(BrowserHost, ShunsAFolderThatOthersMayEnter) {
    app.emplace(runtime);
    ::chmod((runtime + "/tolvar").c_str(), 0755);
    host.emplace(runtime);
    host->awaitSleep();
    EXPECT_FALSE(app->isSought());
    ::chmod((runtime + "/tolvar").c_str(), 0700);
    EXPECT_TRUE(app->letIn());
}

TEST_F(BrowserHost, ShunsALinkInPlaceOfTheFolder) {
    const QTemporaryDir elsewhere;
    app.emplace(elsewhere.path().toStdString());
    const std::string link = runtime + "/tolvar";
    ASSERT_EQ(
        ::symlink(elsewhere.filePath(QStringLiteral("tolvar")).toStdString().c_str(), link.c_str()),
        0);
    host.emplace(runtime);
    host->awaitSleep();
    EXPECT_FALSE(app->isSought());
    ::unlink(link.c_str());
    app.emplace(runtime);
    EXPECT_TRUE(app->letIn());
}

TEST_F(BrowserHost, ShunsASocketOfSomebodyElse) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a socket away";
    app.emplace(runtime);
    const std::string socket = runtime + "/tolvar/browser.sock";
    ASSERT_EQ(::chown(socket.c_str(), 65534, 65534), 0);
    host.emplace(runtime);
    host->awaitSleep();
    EXPECT_FALSE(app->isSought());
}

TEST_F(BrowserHost, ShunsAProcessOfSomebodyElseBehindASocketOfItsOwn) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can become somebody else";
    ASSERT_EQ(::chown(runtime.c_str(), 65534, 65534), 0);
    ASSERT_EQ(::seteuid(65534), 0);
    app.emplace(runtime);
    ASSERT_EQ(::seteuid(0), 0);
    ASSERT_EQ(::chown((runtime + "/tolvar").c_str(), 0, 0), 0);
    ASSERT_EQ(::chown((runtime + "/tolvar/browser.sock").c_str(), 0, 0), 0);
    host.emplace(runtime);
    host->awaitSleep();
    // Connecting is what tells whose process it is: it comes, sees, and says nothing.
    if (app->isSought()) {
        ASSERT_TRUE(app->letIn());
        EXPECT_EQ(app->heard(), std::nullopt);
    }
}

TEST_F(BrowserHost, MakesTheFolderForItsOwnerAloneAndFollowsItWhenItIsReplaced) {
    host.emplace(runtime);
    host->awaitSleep();
    struct stat facts = {};
    ASSERT_EQ(::stat((runtime + "/tolvar").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0700U);
    ASSERT_EQ(::rmdir((runtime + "/tolvar").c_str()), 0);
    app.emplace(runtime);
    EXPECT_TRUE(app->letIn());
}

TEST_F(BrowserHost, MeetsTheProgramInTheDataFolderWhereTheRuntimeFolderIsAbsent) {
    const std::string data = runtime + "/data";
    ::setenv("XDG_DATA_HOME", data.c_str(), 1);
    host.emplace(runtime + "/absent");
    host->awaitSleep();
    struct stat facts = {};
    ASSERT_EQ(::stat((data + "/tolvar/browser").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0700U);
    EXPECT_NE(::stat((runtime + "/absent").c_str(), &facts), 0);
    ::unsetenv("XDG_DATA_HOME");
}

TEST_F(BrowserHost, EndsWhereThereIsNoFolderToWaitIn) {
    ::setenv("XDG_DATA_HOME", "/proc/nowhere", 1);
    HostProcess lost("/proc/nowhere");
    EXPECT_EQ(lost.status(), 1);
    ::unsetenv("XDG_DATA_HOME");
}

} // namespace
} // namespace tolvar::test
