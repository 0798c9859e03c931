#include "Platform/Linux/X11/StubbornMapper.h"
#include "Platform/Linux/X11/WorkspaceFixture.h"

#include <cstdio>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Programs that show their windows again while they are being hidden.
class X11StubbornTest : public WorkspaceFixture {
public:
    Subscription hideWheneverReported() {
        const auto react = [this](const RunningApplication& application) {
            if (application.localizedName != u"Chatter")
                return;
            ++reports;
            workspace->hide(application.handle);
        };
        return workspace->observe({react, react});
    }
    int reports = 0;
    ClientProcess chatting;
    ClientProcess writing;
};

TEST_F(X11StubbornTest, HidesAWindowThatShowsItselfAgainWhileItIsBeingHidden) {
    // KWin minimises no window that does not want the focus.
    const bool wantsFocus = TestDesktop::windowManager() == u"kwin_x11";
    const auto window = desktop.open(chatting, {.className = u"Chat"_s, .wantsFocus = wantsFocus});
    desktop.openActive(writing, editor);
    const auto subscription = hideWheneverReported();
    const StubbornMapper mapper(window, 1);
    hide(u"Chatter"_s);
    desktop.staysTrue([] { return true; });
    EXPECT_TRUE(isGone(window));
    EXPECT_TRUE(desktop.staysTrue([&] { return !desktop.isSeen(window); }));
    unhide(u"Chatter"_s);
    EXPECT_TRUE(isBack(window));
}

TEST_F(X11StubbornTest, IsNotKeptBusyByAWindowThatAlwaysShowsItselfAgain) {
    for (const bool wantsFocus : {false, true}) {
        ClientProcess client;
        const auto window =
            desktop.open(client, {.className = u"Chat"_s, .wantsFocus = wantsFocus});
        desktop.openActive(writing, editor);
        const auto subscription = hideWheneverReported();
        const StubbornMapper mapper(window, 1000000);
        reports = 0;
        hide(u"Chatter"_s);
        desktop.staysTrue([] { return true; }, 2s);
        std::printf("[ MEASURED ] %d reports in two seconds, mapped %d times\n", reports,
                    mapper.count());
        EXPECT_LE(reports, 30);
    }
}

} // namespace
} // namespace tolvar::test
