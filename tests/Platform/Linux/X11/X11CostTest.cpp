#include "Platform/Linux/X11/WorkspaceFixture.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <algorithm>
#include <cstdio>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono;
using Milliseconds = duration<double, std::milli>;

class X11CostTest : public WorkspaceFixture {
public:
    /// Prints the median of the times and returns the best, which the load of the machine least
    /// disturbs.
    static double report(const char* what, std::vector<double> times) {
        std::sort(times.begin(), times.end());
        std::printf("[ MEASURED ] %s under %s: median %.2f ms, best %.2f ms\n", what,
                    qPrintable(desktop_().windowManager()), times[times.size() / 2], times.front());
        return times.front();
    }
    static const TestDesktop& desktop_() {
        static const TestDesktop desktop;
        return desktop;
    }

    /// How often the event loop wakes while it has `time`.
    static int wakeUps(milliseconds time, const std::function<void()>& meanwhile) {
        int count = 0;
        QObject context;
        QObject::connect(QCoreApplication::eventDispatcher(), &QAbstractEventDispatcher::awake,
                         &context, [&] { ++count; });
        const auto deadline = steady_clock::now() + time;
        while (steady_clock::now() < deadline) {
            meanwhile();
            // Returns at once where there is nothing to do; only what wakes it is counted.
            const int before = count;
            if (!QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents))
                count = before;
        }
        return count;
    }
};

TEST_F(X11CostTest, HidesAnActivatedWindowWithinTheBudget) {
    ClientProcess client;
    ClientProcess writing;
    const auto window = desktop.open(client, chat);
    desktop.openActive(writing, editor);
    steady_clock::time_point shown;
    const auto subscription = workspace->observe({{}, [&](const RunningApplication& application) {
                                                      if (application.localizedName != u"Chatter")
                                                          return;
                                                      workspace->hide(application.handle);
                                                  }});
    hide(u"Chatter"_s);
    std::vector<double> times;
    for (int i = 0; i < 15; ++i) {
        ASSERT_TRUE(isGone(window));
        desktop.sync();
        // The user's side is a process of its own that watches without an event loop of ours.
        desktop.requestActivate(window);
        while (!desktop.isSeen(window))
            continue;
        shown = steady_clock::now();
        while (desktop.isSeen(window))
            QCoreApplication::processEvents();
        times.push_back(Milliseconds(steady_clock::now() - shown).count());
    }
    EXPECT_LE(report("shown to hidden", times), 10);
    unhide(u"Chatter"_s);
}

TEST_F(X11CostTest, ListsTwoHundredWindowsQuickly) {
    constexpr int count = 200;
    ClientProcess client;
    std::vector<xcb_window_t> windows;
    for (int i = 0; i < count; ++i) {
        windows.push_back(client.createWindow());
        desktop.present(windows.back(), {.className = i % 2 ? u"Chat"_s : u"Editor"_s});
    }
    ASSERT_TRUE(desktop.waitUntil(
        [&] {
            return std::all_of(windows.begin(), windows.end(),
                               [&](xcb_window_t window) { return desktop.isManaged(window); });
        },
        seconds(60)));
    std::vector<double> times;
    for (int i = 0; i < 20; ++i) {
        const auto start = steady_clock::now();
        EXPECT_EQ(workspace->runningApplications().size(), 2u);
        times.push_back(Milliseconds(steady_clock::now() - start).count());
    }
    EXPECT_LE(report("200 windows listed", times), 50);
    const Reports reports(*workspace);
    times.clear();
    for (int i = 0; i < 20; ++i) {
        const auto start = steady_clock::now();
        workspace->frontmostApplication();
        times.push_back(Milliseconds(steady_clock::now() - start).count());
    }
    EXPECT_LE(report("frontmost of 200 windows", times), 25);
}

TEST_F(X11CostTest, IsNotWokenByWindowsWithoutASubscription) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    { const Reports reports(*workspace); }
    int number = 0;
    desktop.sync();
    QCoreApplication::processEvents();
    EXPECT_EQ(
        wakeUps(milliseconds(100), [&] { desktop.setTitle(window, QByteArray::number(++number)); }),
        0);
}

TEST_F(X11CostTest, IsNotWokenByTitlesOfShownWindowsWhileItObserves) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    const Reports reports(*workspace);
    ASSERT_TRUE(desktop.staysTrue([] { return true; }));
    int number = 0;
    EXPECT_EQ(
        wakeUps(milliseconds(100), [&] { desktop.setTitle(window, QByteArray::number(++number)); }),
        0);
    EXPECT_GT(number, 10);
}

} // namespace
} // namespace tolvar::test
