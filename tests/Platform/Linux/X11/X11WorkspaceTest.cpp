#include "Platform/Linux/X11/WorkspaceFixture.h"

#include <QCoreApplication>
#include <QProcess>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class X11WorkspaceTest : public WorkspaceFixture {};

TEST_F(X11WorkspaceTest, ListsAnApplicationByTheNameOfItsDesktopEntry) {
    ClientProcess client;
    desktop.open(client, chat);
    const auto application = named(u"Chatter"_s);
    ASSERT_TRUE(application);
    EXPECT_EQ(application->bundleIdentifier, u"org.example.Chat");
    EXPECT_EQ(application->processIdentifier, client.processIdentifier());
    EXPECT_FALSE(application->isHidden);
}

TEST_F(X11WorkspaceTest, SaysThatWindowsCanBeHiddenHere) {
    EXPECT_EQ(workspace->hidingSupport(), HidingSupport::full);
}

TEST_F(X11WorkspaceTest, NamesTheApplicationWithTheFocus) {
    ClientProcess client;
    desktop.openActive(client, chat);
    const auto front = workspace->frontmostApplication();
    ASSERT_TRUE(front);
    EXPECT_EQ(front->localizedName, u"Chatter");
    EXPECT_TRUE(front->isActive);
}

TEST_F(X11WorkspaceTest, HidesAnXtermAndShowsItAgain) {
    QProcess xterm;
    xterm.start(u"xterm"_s, {u"-e"_s, u"sleep"_s, u"600"_s});
    const auto handle = handleOf(u"XTerm"_s);
    workspace->hide(handle);
    EXPECT_TRUE(workspace->application(handle)->isHidden);
    workspace->unhide(handle);
    EXPECT_FALSE(workspace->application(handle)->isHidden);
    xterm.kill();
    xterm.waitForFinished();
}

TEST_F(X11WorkspaceTest, HidesEveryWindowOfEveryInstance) {
    ClientProcess first;
    ClientProcess second;
    const auto windows = {desktop.open(first, chat), desktop.open(first, chat),
                          desktop.open(second, chat)};
    hide(u"Chatter"_s);
    for (const xcb_window_t window : windows)
        EXPECT_TRUE(isGone(window));
    EXPECT_TRUE(named(u"Chatter"_s)->isHidden);
    unhide(u"Chatter"_s);
    for (const xcb_window_t window : windows) {
        EXPECT_TRUE(isBack(window));
        EXPECT_FALSE(desktop.isMarked(window));
    }
}

TEST_F(X11WorkspaceTest, LeavesOtherApplicationsAlone) {
    ClientProcess chatting;
    ClientProcess writing;
    desktop.open(chatting, chat);
    const auto other = desktop.open(writing, editor);
    hide(u"Chatter"_s);
    EXPECT_TRUE(desktop.isSeen(other));
    EXPECT_FALSE(desktop.isMarked(other));
    unhide(u"Chatter"_s);
}

TEST_F(X11WorkspaceTest, HasShownWindowsAgainEvenWhenItEndsRightAfter) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    hide(u"Chatter"_s);
    EXPECT_TRUE(isGone(window));
    unhide(u"Chatter"_s);
    workspace.reset();
    EXPECT_TRUE(isBack(window));
    EXPECT_FALSE(desktop.isMarked(window));
}

TEST_F(X11WorkspaceTest, ReportsAnApplicationWhoseFirstWindowOpens) {
    const Reports reports(*workspace);
    ClientProcess client;
    desktop.open(client, chat);
    EXPECT_TRUE(desktop.waitUntil([&] { return reports.contain(u"launched Chatter"_s); }));
}

TEST_F(X11WorkspaceTest, ReportsAnApplicationThatSaysWhoItIsOnlyAfterItsWindowOpened) {
    const Reports reports(*workspace);
    ClientProcess client;
    const auto window = desktop.open(client, {.className = {}});
    desktop.waitUntil([&] { return !reports.all.empty(); });
    desktop.present(window, chat);
    EXPECT_TRUE(desktop.waitUntil([&] { return reports.contain(u"launched Chatter"_s); }));
}

TEST_F(X11WorkspaceTest, ReportsAWindowInFrontThatTurnsOutToBeOfAnotherApplication) {
    ClientProcess client;
    const auto window = desktop.openActive(client, editor);
    const Reports reports(*workspace);
    ASSERT_EQ(workspace->frontmostApplication()->localizedName, u"Writer"_s);
    desktop.present(window, chat);
    EXPECT_TRUE(desktop.waitUntil([&] { return reports.contain(u"launched Chatter"_s); }));
    EXPECT_EQ(workspace->frontmostApplication()->localizedName, u"Chatter"_s);
}

TEST_F(X11WorkspaceTest, ReportsAnApplicationThatTakesTheFocus) {
    ClientProcess chatting;
    ClientProcess writing;
    const auto window = desktop.open(chatting, chat);
    desktop.openActive(writing, editor);
    const Reports reports(*workspace);
    desktop.activate(window);
    EXPECT_TRUE(desktop.waitUntil([&] { return reports.contain(u"activated Chatter"_s); }));
    EXPECT_FALSE(reports.contain(u"activated Writer"_s));
}

TEST_F(X11WorkspaceTest, ReportsAHiddenApplicationThatOpensAnotherWindow) {
    ClientProcess client;
    ClientProcess writing;
    desktop.open(client, chat);
    desktop.openActive(writing, editor);
    const Reports reports(*workspace);
    hide(u"Chatter"_s);
    const auto another = client.createWindow();
    desktop.present(another, chat);
    ASSERT_TRUE(desktop.waitUntil([&] { return reports.contain(u"activated Chatter"_s); }));
    hide(u"Chatter"_s);
    EXPECT_TRUE(isGone(another));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(another));
}

TEST_F(X11WorkspaceTest, ReportsAHiddenApplicationThatIsActivatedFromAPagerEachTime) {
    ClientProcess client;
    ClientProcess writing;
    const auto window = desktop.open(client, chat);
    desktop.openActive(writing, editor);
    Reports reports(*workspace);
    hide(u"Chatter"_s);
    for (int time = 0; time < 3; ++time) {
        reports.all.clear();
        desktop.requestActivate(window);
        ASSERT_TRUE(desktop.waitUntil([&] { return reports.contain(u"activated Chatter"_s); }));
        hide(u"Chatter"_s);
        EXPECT_TRUE(isGone(window));
    }
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(window));
}

TEST_F(X11WorkspaceTest, DoesNotReportWhatItShowsAgainItself) {
    ClientProcess client;
    ClientProcess writing;
    const auto window = desktop.open(client, chat);
    desktop.openActive(writing, editor);
    const Reports reports(*workspace);
    hide(u"Chatter"_s);
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(window));
    EXPECT_TRUE(desktop.staysTrue([&] { return !reports.contain(u"activated Chatter"_s); }));
}

TEST_F(X11WorkspaceTest, ReportsNothingOnceTheSubscriptionIsDropped) {
    Reports reports(*workspace);
    reports.subscription.reset();
    ClientProcess client;
    desktop.open(client, chat);
    EXPECT_TRUE(desktop.staysTrue([&] { return reports.all.empty(); }));
}

TEST_F(X11WorkspaceTest, LetsAnObserverDropItsSubscriptionAndHideWhileItIsTold) {
    ClientProcess client;
    Subscription subscription;
    int calls = 0;
    subscription = workspace->observe({[&](const RunningApplication& application) {
                                           ++calls;
                                           subscription.reset();
                                           workspace->hide(application.handle);
                                       },
                                       {}});
    const auto window = client.createWindow();
    desktop.present(window, chat);
    ASSERT_TRUE(desktop.waitUntil([&] { return calls == 1; }));
    EXPECT_TRUE(isGone(window));
    unhide(u"Chatter"_s);
}

TEST_F(X11WorkspaceTest, KeepsAWindowHiddenThatItsUserHadMinimisedBefore) {
    if (desktop.isI3())
        GTEST_SKIP() << "i3 minimises nothing";
    ClientProcess client;
    const auto minimised = desktop.open(client, chat);
    const auto shown = desktop.open(client, chat);
    desktop.minimise(minimised);
    hide(u"Chatter"_s);
    EXPECT_TRUE(isGone(shown));
    EXPECT_FALSE(desktop.isMarked(minimised));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(shown));
    EXPECT_TRUE(desktop.staysTrue([&] { return !desktop.isSeen(minimised); }));
}

TEST_F(X11WorkspaceTest, SeesAnApplicationAsHiddenWhoseUserMinimisedIt) {
    if (desktop.isI3())
        GTEST_SKIP() << "i3 minimises nothing";
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    desktop.minimise(window);
    EXPECT_TRUE(named(u"Chatter"_s)->isHidden);
    const Reports reports(*workspace);
    desktop.map(window);
    EXPECT_TRUE(desktop.waitUntil([&] { return reports.contain(u"activated Chatter"_s); }));
}

TEST_F(X11WorkspaceTest, NeverListsOrHidesOurOwnWindows) {
    const auto own = xcb_generate_id(desktop.connection().get());
    xcb_create_window(desktop.connection().get(), XCB_COPY_FROM_PARENT, own,
                      desktop.connection().root(), 0, 0, 200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    desktop.present(own, chat);
    ASSERT_TRUE(desktop.waitUntil([&] { return desktop.isManaged(own) && desktop.isSeen(own); }));
    EXPECT_FALSE(named(u"Chatter"_s));
    ClientProcess client;
    const auto other = desktop.open(client, chat);
    hide(u"Chatter"_s);
    EXPECT_TRUE(isGone(other));
    EXPECT_TRUE(desktop.isSeen(own));
    unhide(u"Chatter"_s);
    xcb_destroy_window(desktop.connection().get(), own);
    desktop.sync();
}

TEST_F(X11WorkspaceTest, BringsOurOwnWindowForward) {
    ClientProcess client;
    const auto own = xcb_generate_id(desktop.connection().get());
    xcb_create_window(desktop.connection().get(), XCB_COPY_FROM_PARENT, own,
                      desktop.connection().root(), 0, 0, 200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    desktop.present(own, {.className = u"Tolvar"_s});
    ASSERT_TRUE(desktop.waitUntil([&] { return desktop.isManaged(own) && desktop.isSeen(own); }));
    desktop.openActive(client, chat);
    workspace->activateSelf();
    EXPECT_TRUE(desktop.waitUntil([&] { return desktop.active() == own; }));
    EXPECT_FALSE(workspace->frontmostApplication());
    xcb_destroy_window(desktop.connection().get(), own);
    desktop.sync();
}

TEST_F(X11WorkspaceTest, LeavesTheFocusWhereItIsWhenWeShowNoWindow) {
    ClientProcess client;
    const auto window = desktop.openActive(client, chat);
    workspace->activateSelf();
    EXPECT_TRUE(desktop.staysTrue([&] { return desktop.active() == window; }));
}

TEST_F(X11WorkspaceTest, ForgetsAnApplicationThatQuitWhileHidden) {
    ClientProcess client;
    desktop.open(client, chat);
    const auto handle = handleOf(u"Chatter"_s);
    workspace->hide(handle);
    client.quit();
    EXPECT_TRUE(desktop.waitUntil([&] { return !workspace->application(handle); }));
    workspace->unhide(handle);
}

TEST_F(X11WorkspaceTest, IgnoresHandlesItDoesNotKnow) {
    workspace->hide({u"entry:nothing"_s});
    workspace->unhide({u"entry:nothing"_s});
    EXPECT_FALSE(workspace->application({u"entry:nothing"_s}));
}

TEST_F(X11WorkspaceTest, HidesADialogWithItsApplicationAndShowsItAgain) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    const auto dialog = desktop.open(
        client,
        {.className = u"Chat"_s, .transientFor = window, .type = "_NET_WM_WINDOW_TYPE_DIALOG"});
    hide(u"Chatter"_s);
    EXPECT_TRUE(isGone(window));
    EXPECT_TRUE(isGone(dialog));
    EXPECT_TRUE(named(u"Chatter"_s)->isHidden);
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(window));
    EXPECT_TRUE(isBack(dialog));
}

TEST_F(X11WorkspaceTest, HidesADialogThatAnotherProcessShowsForTheApplication) {
    ClientProcess client;
    ClientProcess portal;
    const auto window = desktop.open(client, chat);
    const auto dialog = desktop.open(portal, {.className = u"Portal"_s, .transientFor = window});
    hide(u"Chatter"_s);
    EXPECT_TRUE(isGone(dialog));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(dialog));
}

TEST_F(X11WorkspaceTest, KeepsADialogHiddenThatAHiddenApplicationOpens) {
    ClientProcess client;
    ClientProcess writing;
    const auto window = desktop.open(client, chat);
    desktop.openActive(writing, editor);
    const auto subscription = workspace->observe({{}, [&](const RunningApplication& application) {
                                                      if (application.localizedName == u"Chatter")
                                                          workspace->hide(application.handle);
                                                  }});
    hide(u"Chatter"_s);
    const auto dialog = client.createWindow();
    desktop.present(
        dialog,
        {.className = u"Chat"_s, .transientFor = window, .type = "_NET_WM_WINDOW_TYPE_DIALOG"});
    ASSERT_TRUE(desktop.waitUntil([&] { return desktop.isManaged(dialog); }));
    // Some window managers show it, others open the dialog of a minimised window minimised.
    const auto isOutOfView = [&] { return !desktop.isSeen(dialog) && !desktop.isSeen(window); };
    desktop.staysTrue([] { return true; });
    EXPECT_TRUE(desktop.waitUntil(isOutOfView));
    EXPECT_TRUE(desktop.staysTrue(isOutOfView));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(window));
}

TEST_F(X11WorkspaceTest, ShowsWindowsAgainWithoutTakingTheFocus) {
    ClientProcess chatting;
    ClientProcess writing;
    const auto windows = {desktop.openActive(chatting, chat), desktop.openActive(chatting, chat)};
    const auto users = desktop.openActive(writing, editor);
    hide(u"Chatter"_s);
    EXPECT_EQ(desktop.active(), users);
    unhide(u"Chatter"_s);
    EXPECT_EQ(desktop.active(), users);
    EXPECT_TRUE(desktop.staysTrue([&] { return desktop.active() == users; }));
    for (const xcb_window_t window : windows)
        EXPECT_TRUE(isBack(window));
}

TEST_F(X11WorkspaceTest, LeavesDocksAndNotificationsOfAnApplicationAlone) {
    ClientProcess client;
    desktop.open(client, chat);
    std::vector<xcb_window_t> furniture;
    for (const char* type : {"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_NOTIFICATION"}) {
        furniture.push_back(client.createWindow());
        desktop.present(furniture.back(), {.className = u"Chat"_s, .type = type});
        ASSERT_TRUE(isBack(furniture.back()));
    }
    hide(u"Chatter"_s);
    for (const xcb_window_t window : furniture)
        EXPECT_TRUE(desktop.isSeen(window));
    unhide(u"Chatter"_s);
}

TEST_F(X11WorkspaceTest, LeavesAnApplicationOfFurnitureOutOfTheList) {
    ClientProcess client;
    const auto dock = client.createWindow();
    desktop.present(dock, {.className = u"Chat"_s, .type = "_NET_WM_WINDOW_TYPE_DOCK"});
    ASSERT_TRUE(isBack(dock));
    EXPECT_FALSE(named(u"Chatter"_s));
}

TEST_F(X11WorkspaceTest, LeavesWindowsAloneThatNoWindowManagerKeeps) {
    ClientProcess client;
    const auto popup = client.createWindow(ClientProcess::Redirect::override);
    desktop.present(popup, chat);
    ASSERT_TRUE(isBack(popup));
    // The id may be that of a window before, until the window manager knows that one is gone.
    ASSERT_TRUE(desktop.waitUntil([&] { return !desktop.isManaged(popup); }));
    EXPECT_FALSE(named(u"Chatter"_s));
}

TEST_F(X11WorkspaceTest, BelievesTheServerRatherThanAWindowThatClaimsToBeOurs) {
    ClientProcess client;
    const auto window = desktop.open(
        client, {.className = u"Chat"_s,
                 .claimedProcess = static_cast<std::uint32_t>(QCoreApplication::applicationPid())});
    hide(u"Chatter"_s);
    EXPECT_TRUE(isGone(window));
    EXPECT_EQ(named(u"Chatter"_s)->processIdentifier, client.processIdentifier());
    unhide(u"Chatter"_s);
}

TEST_F(X11WorkspaceTest, KnowsNoProcessOfAWindowFromAnotherMachine) {
    ClientProcess client;
    desktop.open(
        client, {.className = u"Remote"_s, .claimedProcess = 1, .machine = u"elsewhere.example"_s});
    const auto application = named(u"Remote"_s);
    ASSERT_TRUE(application);
    EXPECT_EQ(application->processIdentifier, 0);
}

TEST_F(X11WorkspaceTest, BringsWindowsBackOnTheWorkspaceTheyWereOn) {
    if (!desktop.isI3())
        desktop.setWorkspaceCount(2);
    ClientProcess client;
    ClientProcess writing;
    const auto users = desktop.openActive(writing, editor);
    const auto away = desktop.open(client, chat);
    if (desktop.isI3())
        QProcess::execute(u"i3-msg"_s, {u"-q"_s, u"[id=%1] move to workspace 7"_s.arg(away)});
    else
        desktop.moveToWorkspace(away, 1);
    ASSERT_TRUE(isGone(away));
    desktop.activate(users);
    const QString place = desktop.workspaceNameOf(away);
    const auto looking = desktop.currentWorkspace();
    hide(u"Chatter"_s);
    unhide(u"Chatter"_s);
    EXPECT_FALSE(named(u"Chatter"_s)->isHidden);
    EXPECT_EQ(desktop.workspaceNameOf(away), place);
    EXPECT_EQ(desktop.currentWorkspace(), looking);
    EXPECT_EQ(desktop.active(), users);
    EXPECT_TRUE(isGone(away));
}

TEST_F(X11WorkspaceTest, BringsAStickyWindowBackSticky) {
    if (!desktop.isI3())
        desktop.setWorkspaceCount(2);
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    constexpr std::uint32_t everywhere = 0xFFFFFFFF;
    if (desktop.isI3())
        QProcess::execute(u"i3-msg"_s,
                          {u"-q"_s, u"[id=%1] floating enable, sticky enable"_s.arg(window)});
    else
        desktop.moveToWorkspace(window, everywhere);
    ASSERT_TRUE(desktop.waitUntil([&] { return desktop.workspaceOf(window) == everywhere; }));
    hide(u"Chatter"_s);
    EXPECT_TRUE(isGone(window));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(window));
    EXPECT_TRUE(desktop.waitUntil([&] { return desktop.workspaceOf(window) == everywhere; }));
}

} // namespace
} // namespace tolvar::test
