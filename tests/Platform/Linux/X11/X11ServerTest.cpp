#include "Platform/Linux/X11/PrivateServer.h"
#include "Platform/Linux/X11/WorkspaceFixture.h"

#include <QProcess>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

DesktopEntries noEntries() {
    return DesktopEntries({}, {}, u"C"_s);
}

class WindowManagerProcess {
public:
    explicit WindowManagerProcess(const QString& program, const QStringList& arguments) {
        m_process.start(program, arguments);
    }
    ~WindowManagerProcess() { end(); }
    /// Asks it to leave, as a session does.
    void leave() {
        m_process.terminate();
        m_process.waitForFinished();
    }
    void end() {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};

/// Whether a window manager runs and takes windows: it says who it is before it does.
bool isManaged(const X11Workspace& workspace) {
    const TestDesktop desktop;
    const auto list = desktop.connection().read(desktop.connection().root(),
                                                desktop.connection().ewmh()._NET_CLIENT_LIST);
    return workspace.hidingSupport() == HidingSupport::full && list.format != 0;
}

TEST(X11Server, GivesNoWorkspaceWhereThereIsNone) {
    const QByteArray former = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":63999");
    RecordingLog log;
    EXPECT_EQ(X11Workspace::create(noEntries(), log), nullptr);
    qputenv("DISPLAY", former);
}

TEST(X11Server, HidesNothingWithoutAWindowManagerAndBeginsWhenOneComes) {
    const PrivateServer server;
    RecordingLog log;
    const auto workspace = X11Workspace::create(noEntries(), log);
    ASSERT_TRUE(workspace);
    EXPECT_EQ(workspace->hidingSupport(), HidingSupport::none);
    EXPECT_TRUE(workspace->runningApplications().empty());
    EXPECT_FALSE(workspace->frontmostApplication());
    EXPECT_TRUE(workspace->hiddenByEarlierRun().empty());
    workspace->activateSelf();

    const Reports reports(*workspace);
    const WindowManagerProcess manager(u"openbox"_s, {u"--sm-disable"_s});
    EXPECT_TRUE(TestDesktop::waitUntil([&] { return isManaged(*workspace); }));
    TestDesktop desktop;
    ClientProcess client;
    desktop.open(client, {.className = u"Chat"_s});
    EXPECT_TRUE(TestDesktop::waitUntil([&] { return reports.contain(u"launched Chat"_s); }));
}

TEST(X11Server, KnowsWhenTheWindowManagerHasDied) {
    const PrivateServer server;
    RecordingLog log;
    const auto workspace = X11Workspace::create(noEntries(), log);
    ASSERT_TRUE(workspace);
    const Reports reports(*workspace);
    WindowManagerProcess manager(u"openbox"_s, {u"--sm-disable"_s});
    ASSERT_TRUE(TestDesktop::waitUntil([&] { return isManaged(*workspace); }));
    manager.end();
    EXPECT_TRUE(
        TestDesktop::waitUntil([&] { return workspace->hidingSupport() == HidingSupport::none; }));
}

TEST(X11Server, KeepsWindowsHiddenWhileOneWindowManagerReplacesAnotherAndShowsThemAgain) {
    const PrivateServer server;
    RecordingLog log;
    const auto workspace = X11Workspace::create(noEntries(), log);
    ASSERT_TRUE(workspace);
    const Reports reports(*workspace);
    const WindowManagerProcess manager(u"openbox"_s, {u"--sm-disable"_s});
    ASSERT_TRUE(TestDesktop::waitUntil([&] { return isManaged(*workspace); }));
    TestDesktop desktop;
    ClientProcess client;
    const auto window = desktop.open(client, {.className = u"Chat"_s});
    const auto handle = workspace->runningApplications().at(0).handle;
    const auto hideWhenReported = workspace->observe(
        {[](const RunningApplication&) {},
         [&](const RunningApplication& application) { workspace->hide(application.handle); }});
    workspace->hide(handle);
    ASSERT_TRUE(TestDesktop::waitUntil([&] { return !desktop.isSeen(window); }));

    const WindowManagerProcess successor(
        u"dbus-run-session"_s, {u"--"_s, u"xfwm4"_s, u"--replace"_s, u"--compositor=off"_s});
    const auto& ewmh = desktop.connection().ewmh();
    const auto name = [&] {
        const auto check =
            desktop.connection().read(desktop.connection().root(), ewmh._NET_SUPPORTING_WM_CHECK);
        return desktop.connection().read(check.word().value_or(0), ewmh._NET_WM_NAME).text();
    };
    ASSERT_TRUE(
        TestDesktop::waitUntil([&] { return name() == u"Xfwm4" && desktop.isManaged(window); }));
    EXPECT_TRUE(TestDesktop::waitUntil([&] { return !desktop.isSeen(window); }));
    EXPECT_EQ(workspace->hidingSupport(), HidingSupport::full);
    workspace->unhide(handle);
    EXPECT_TRUE(TestDesktop::waitUntil([&] { return desktop.isSeen(window); }));
    EXPECT_TRUE(TestDesktop::waitUntil([&] { return !desktop.isMarked(window); }));
}

TEST(X11Server, IsMissedQuietlyByWhoIsTheFirstToAskForSomething) {
    PrivateServer server;
    RecordingLog log;
    const auto workspace = X11Workspace::create(noEntries(), log);
    ASSERT_TRUE(workspace);
    server.end();
    workspace->hide({u"entry:chat"_s});
    EXPECT_TRUE(workspace->runningApplications().empty());
    EXPECT_EQ(log.lines.size(), 1u);
}

class X11ServerGap : public testing::TestWithParam<std::tuple<QString, bool>> {};

TEST_P(X11ServerGap, ShowsWindowsAgainThoughTheWindowManagerThatHidThemIsGone) {
    const auto& [program, isKilled] = GetParam();
    const PrivateServer server;
    RecordingLog log;
    const auto workspace = X11Workspace::create(noEntries(), log);
    ASSERT_TRUE(workspace);
    const QStringList arguments =
        program == u"openbox" ? QStringList{u"--sm-disable"_s} : QStringList{};
    auto manager = std::make_unique<WindowManagerProcess>(program, arguments);
    ASSERT_TRUE(TestDesktop::waitUntil([&] { return isManaged(*workspace); }));
    TestDesktop desktop;
    ClientProcess client;
    const auto window = desktop.open(client, {.className = u"Chat"_s});
    const auto handle = workspace->runningApplications().at(0).handle;
    workspace->hide(handle);
    ASSERT_TRUE(TestDesktop::waitUntil([&] { return !desktop.isSeen(window); }));
    if (!isKilled)
        manager->leave();
    manager.reset();
    ASSERT_TRUE(
        TestDesktop::waitUntil([&] { return workspace->hidingSupport() == HidingSupport::none; }));
    const auto application = workspace->application(handle);
    ASSERT_TRUE(application);
    EXPECT_FALSE(workspace->frontmostApplication());
    workspace->unhide(handle);
    EXPECT_TRUE(desktop.isSeen(window));
    EXPECT_FALSE(desktop.isMarked(window));
    workspace->hide(handle);
    EXPECT_TRUE(desktop.isSeen(window));
    EXPECT_FALSE(desktop.isMarked(window));

    const WindowManagerProcess successor(program, arguments);
    // A window manager that was killed leaves its list of windows behind, and the next one unmaps
    // windows for a moment while it takes them.
    ASSERT_TRUE(TestDesktop::waitUntil([&] { return isManaged(*workspace); }));
    TestDesktop::staysTrue([] { return true; });
    EXPECT_TRUE(TestDesktop::waitUntil([&] { return desktop.isSeen(window); }));
    EXPECT_FALSE(desktop.isMinimised(window));
}

INSTANTIATE_TEST_SUITE_P(WindowManagers, X11ServerGap,
                         testing::Combine(testing::Values(u"openbox"_s, u"metacity"_s),
                                          testing::Bool()));

TEST(X11Server, IsMissedQuietlyAndLoggedOnce) {
    PrivateServer server;
    RecordingLog log;
    const auto workspace = X11Workspace::create(noEntries(), log);
    ASSERT_TRUE(workspace);
    Reports reports(*workspace);
    server.end();
    EXPECT_TRUE(TestDesktop::waitUntil([&] { return !log.lines.empty(); }));
    EXPECT_EQ(workspace->hidingSupport(), HidingSupport::none);
    EXPECT_TRUE(workspace->runningApplications().empty());
    EXPECT_FALSE(workspace->frontmostApplication());
    EXPECT_TRUE(workspace->hiddenByEarlierRun().empty());
    workspace->hide({u"entry:chat"_s});
    workspace->unhide({u"entry:chat"_s});
    workspace->activateSelf();
    reports.subscription.reset();
    EXPECT_EQ(log.lines, std::vector{u"Workspace: The connection to the X server is lost."_s});
}

} // namespace
} // namespace tolvar::test
