#include "Platform/Linux/X11/WorkspaceFixture.h"

#include <QProcess>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

/// What becomes of hidden windows when the program that hid them is killed, or when their users
/// act on their own.
class X11RecoveryTest : public WorkspaceFixture {};

TEST_F(X11RecoveryTest, FindsNothingOfAnEarlierRunOnAFreshDesktop) {
    ClientProcess client;
    desktop.open(client, chat);
    EXPECT_TRUE(workspace->hiddenByEarlierRun().empty());
}

TEST_F(X11RecoveryTest, ShowsWhatAKilledRunHadHidden) {
    ClientProcess chatting;
    ClientProcess writing;
    const auto windows = {desktop.open(chatting, chat), desktop.open(chatting, chat)};
    const auto users = desktop.openActive(writing, editor);
    hideInARunThatIsKilled(u"Chatter"_s);
    for (const xcb_window_t window : windows)
        ASSERT_TRUE(isGone(window));
    EXPECT_EQ(workspace->hiddenByEarlierRun(), std::vector{handleOf(u"Chatter"_s)});
    unhide(u"Chatter"_s);
    for (const xcb_window_t window : windows)
        EXPECT_TRUE(isBack(window));
    EXPECT_EQ(desktop.active(), users);
    EXPECT_TRUE(workspace->hiddenByEarlierRun().empty());
}

TEST_F(X11RecoveryTest, TakesOverWhatAKilledRunHadHidden) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    hideInARunThatIsKilled(u"Chatter"_s);
    ASSERT_TRUE(isGone(window));
    hide(u"Chatter"_s);
    EXPECT_TRUE(workspace->hiddenByEarlierRun().empty());
    EXPECT_FALSE(desktop.isSeen(window));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(window));
}

TEST_F(X11RecoveryTest, CountsWhatItHidItselfAsNoEarlierRun) {
    ClientProcess client;
    desktop.open(client, chat);
    hide(u"Chatter"_s);
    EXPECT_TRUE(workspace->hiddenByEarlierRun().empty());
    EXPECT_EQ(makeWorkspace()->hiddenByEarlierRun(), std::vector{handleOf(u"Chatter"_s)});
    unhide(u"Chatter"_s);
}

TEST_F(X11RecoveryTest, FindsNothingOnceTheWindowsThatWereHiddenAreGone) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    hideInARunThatIsKilled(u"Chatter"_s);
    ASSERT_TRUE(isGone(window));
    client.quit();
    EXPECT_TRUE(desktop.waitUntil([&] { return workspace->hiddenByEarlierRun().empty(); }));
}

TEST_F(X11RecoveryTest, ForgetsWindowsThatTheirUserShowedBeforeItStarted) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    hideInARunThatIsKilled(u"Chatter"_s);
    ASSERT_TRUE(isGone(window));
    if (desktop.isI3())
        QProcess::execute(u"i3-msg"_s,
                          {u"-q"_s, u"[id=%1] move to workspace current"_s.arg(window)});
    else
        desktop.activate(window);
    ASSERT_TRUE(isBack(window));
    EXPECT_TRUE(workspace->hiddenByEarlierRun().empty());
    desktop.sync();
    EXPECT_FALSE(desktop.isMarked(window));
}

TEST_F(X11RecoveryTest, LeavesAWindowHiddenThatItsUserUsedAndMinimisedAfterTheKill) {
    if (desktop.isI3())
        GTEST_SKIP() << "i3 minimises nothing";
    ClientProcess client;
    const auto window = desktop.open(client, {.className = u"Chat"_s, .userTime = 1000});
    hideInARunThatIsKilled(u"Chatter"_s);
    ASSERT_TRUE(isGone(window));
    desktop.activate(window);
    desktop.setUserTime(window, 2000);
    desktop.minimise(window);
    EXPECT_TRUE(workspace->hiddenByEarlierRun().empty());
    unhide(u"Chatter"_s);
    EXPECT_TRUE(desktop.staysTrue([&] { return !desktop.isSeen(window); }));
    EXPECT_FALSE(desktop.isMarked(window));
}

TEST_F(X11RecoveryTest, LeavesAWindowHiddenThatItsUserShowedAndMinimisedWhileNobodyHidIt) {
    if (desktop.isI3())
        GTEST_SKIP() << "i3 minimises nothing";
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    const Reports reports(*workspace);
    hide(u"Chatter"_s);
    desktop.activate(window);
    ASSERT_TRUE(desktop.waitUntil([&] { return reports.contain(u"activated Chatter"_s); }));
    EXPECT_TRUE(desktop.waitUntil([&] { return !desktop.isMarked(window); }));
    desktop.minimise(window);
    unhide(u"Chatter"_s);
    EXPECT_TRUE(desktop.staysTrue([&] { return !desktop.isSeen(window); }));
}

TEST_F(X11RecoveryTest, StillShowsAWindowThatWasShownByItsUserAndHiddenAgainByUs) {
    ClientProcess client;
    ClientProcess writing;
    const auto window = desktop.open(client, chat);
    desktop.openActive(writing, editor);
    const Reports reports(*workspace);
    hide(u"Chatter"_s);
    desktop.requestActivate(window);
    ASSERT_TRUE(desktop.waitUntil([&] { return reports.contain(u"activated Chatter"_s); }));
    hide(u"Chatter"_s);
    ASSERT_TRUE(isGone(window));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(window));
    EXPECT_FALSE(desktop.isMarked(window));
}

TEST_F(X11RecoveryTest, HidesAWindowOfAnotherWorkspaceAtTheLatestWhenItIsLookedAt) {
    if (desktop.isI3())
        GTEST_SKIP() << "moving is hiding there";
    desktop.setWorkspaceCount(2);
    ClientProcess client;
    ClientProcess writing;
    const auto away = desktop.open(client, chat);
    desktop.moveToWorkspace(away, 1);
    desktop.openActive(writing, editor);
    ASSERT_TRUE(isGone(away));
    const Reports reports(*workspace);
    hide(u"Chatter"_s);
    desktop.goToWorkspace(1);
    EXPECT_TRUE(desktop.waitUntil([&] { return desktop.isMinimised(away); }));
    EXPECT_TRUE(isGone(away));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(away));
    desktop.goToWorkspace(0);
}

} // namespace
} // namespace tolvar::test
