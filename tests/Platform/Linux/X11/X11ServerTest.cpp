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
