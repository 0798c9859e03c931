#include "Platform/Linux/X11/I3Ipc.h"
#include "Platform/Linux/X11/WorkspaceFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

/// What i3 alone knows of windows: tiles, floats, full screens and a scratchpad.
class X11I3Test : public WorkspaceFixture {
public:
    void SetUp() override {
        if (!desktop.isI3())
            GTEST_SKIP() << "for i3 alone";
        WorkspaceFixture::SetUp();
    }
    void TearDown() override {
        if (desktop.isI3())
            message(u"workspace 1"_s);
    }

    static QByteArray message(const QString& command) {
        QProcess process;
        process.start(u"i3-msg"_s, {command});
        process.waitForFinished();
        return process.readAllStandardOutput();
    }
    static void tell(xcb_window_t window, const QString& command) {
        message(u"[id=%1] %2"_s.arg(window).arg(command));
    }

    static QJsonObject tree() {
        QProcess process;
        process.start(u"i3-msg"_s, {u"-t"_s, u"get_tree"_s});
        process.waitForFinished();
        return QJsonDocument::fromJson(process.readAllStandardOutput()).object();
    }
    static QJsonObject find(const QJsonObject& node, xcb_window_t window) {
        if (node[u"window"].toInteger() == window)
            return node;
        for (const auto& children : {u"nodes"_s, u"floating_nodes"_s})
            for (const auto& child : node[children].toArray())
                if (auto found = find(child.toObject(), window); !found.isEmpty())
                    return found;
        return {};
    }
    static QJsonObject node(xcb_window_t window) { return find(tree(), window); }
};

TEST_F(X11I3Test, KeepsAFloatingWindowFloatingInItsPlace) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    tell(window, u"floating enable, resize set 250 150, move position 40 60"_s);
    const auto before = node(window);
    hide(u"Chatter"_s);
    ASSERT_TRUE(isGone(window));
    unhide(u"Chatter"_s);
    ASSERT_TRUE(isBack(window));
    const auto after = node(window);
    EXPECT_EQ(after[u"floating"].toString(), before[u"floating"].toString());
    EXPECT_EQ(after[u"rect"].toObject(), before[u"rect"].toObject());
}

TEST_F(X11I3Test, KeepsAFullScreen) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    tell(window, u"fullscreen enable"_s);
    hide(u"Chatter"_s);
    ASSERT_TRUE(isGone(window));
    unhide(u"Chatter"_s);
    ASSERT_TRUE(isBack(window));
    EXPECT_EQ(node(window)[u"fullscreen_mode"].toInt(), 1);
}

TEST_F(X11I3Test, LeavesTheScratchpadAlone) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    tell(window, u"move scratchpad"_s);
    ASSERT_TRUE(isGone(window));
    EXPECT_TRUE(desktop.waitUntil([&] { return named(u"Chatter"_s)->isHidden; }));
    hide(u"Chatter"_s);
    EXPECT_FALSE(desktop.isMarked(window));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(desktop.staysTrue([&] { return !desktop.isSeen(window); }));
}

TEST_F(X11I3Test, BringsAShownScratchpadWindowBackAsOne) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    tell(window, u"move scratchpad, scratchpad show"_s);
    ASSERT_TRUE(isBack(window));
    const auto before = node(window);
    hide(u"Chatter"_s);
    ASSERT_TRUE(isGone(window));
    unhide(u"Chatter"_s);
    ASSERT_TRUE(isBack(window));
    EXPECT_EQ(node(window)[u"scratchpad_state"].toString(), before[u"scratchpad_state"].toString());
    tell(window, u"scratchpad show"_s);
    EXPECT_TRUE(isGone(window));
}

TEST_F(X11I3Test, ReportsAndHidesWindowsOnTheHiddenWorkspaceThatIsLookedAt) {
    ClientProcess chatting;
    ClientProcess writing;
    const auto window = desktop.open(chatting, chat);
    desktop.openActive(writing, editor);
    const QString home = desktop.workspaceNameOf(window);
    const Reports reports(*workspace);
    hide(u"Chatter"_s);
    ASSERT_TRUE(isGone(window));
    message(u"workspace tolvar-blocked"_s);
    ASSERT_TRUE(desktop.waitUntil([&] { return reports.contain(u"activated Chatter"_s); }));
    hide(u"Chatter"_s);
    EXPECT_TRUE(isGone(window));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(window));
    EXPECT_EQ(desktop.workspaceNameOf(window), home);
}

TEST_F(X11I3Test, ReportsAWindowThatIsFetchedFromTheHiddenWorkspaceWithoutFocus) {
    ClientProcess chatting;
    ClientProcess writing;
    const auto window = desktop.open(chatting, chat);
    const auto users = desktop.openActive(writing, editor);
    const Reports reports(*workspace);
    hide(u"Chatter"_s);
    ASSERT_TRUE(isGone(window));
    message(u"[id=%1] move to workspace current; [id=%2] focus"_s.arg(window).arg(users));
    EXPECT_TRUE(desktop.waitUntil([&] { return reports.contain(u"activated Chatter"_s); }));
    hide(u"Chatter"_s);
    EXPECT_TRUE(isGone(window));
    unhide(u"Chatter"_s);
}

TEST_F(X11I3Test, FindsItsWayToAWorkspaceOfAnyName) {
    const QString name = u"9: say \"hi\" \\ back, [x] ; ü"_s;
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    tell(window, u"move to workspace "_s + I3Ipc::quoted(name));
    ASSERT_TRUE(desktop.waitUntil([&] { return desktop.workspaceNameOf(window) == name; }));
    hide(u"Chatter"_s);
    ASSERT_TRUE(desktop.waitUntil([&] { return desktop.workspaceNameOf(window) != name; }));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(desktop.waitUntil([&] { return desktop.workspaceNameOf(window) == name; }));
}

} // namespace
} // namespace tolvar::test
