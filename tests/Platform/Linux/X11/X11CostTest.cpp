#include "Platform/Linux/X11/WorkspaceFixture.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <sys/resource.h>

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

    /// How often the event loop wakes while the title of `window` changes fifty times.
    int wakeUpsByTitles(xcb_window_t window) {
        desktop.staysTrue([] { return true; });
        int count = 0;
        QObject context;
        auto* dispatcher = QCoreApplication::eventDispatcher();
        for (int number = 0; number < 50; ++number) {
            desktop.setTitle(window, QByteArray::number(number));
            desktop.sync();
            if (dispatcher->processEvents(QEventLoop::AllEvents))
                ++count;
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
        desktop.requestActivate(window);
        // Our event loop rests meanwhile.
        const auto deadline = steady_clock::now() + seconds(5);
        while (!desktop.isSeen(window) && steady_clock::now() < deadline)
            continue;
        ASSERT_TRUE(desktop.isSeen(window)) << "round " << i;
        shown = steady_clock::now();
        ASSERT_TRUE(isGone(window)) << "round " << i;
        times.push_back(Milliseconds(steady_clock::now() - shown).count());
    }
    EXPECT_LE(report("shown to hidden", times), 100);
    unhide(u"Chatter"_s);
}

TEST_F(X11CostTest, IsNotWokenByWindowsWithoutASubscription) {
    ClientProcess client;
    const auto window = desktop.open(client, chat);
    { const Reports reports(*workspace); }
    EXPECT_LE(wakeUpsByTitles(window), 5);
}

TEST_F(X11CostTest, IsNotWokenByTitlesOfShownWindowsWhileItObserves) {
    ClientProcess client;
    ClientProcess writing;
    const auto window = desktop.open(client, chat);
    desktop.openActive(writing, editor);
    const Reports reports(*workspace);
    const int whileShown = wakeUpsByTitles(window);
    EXPECT_LE(whileShown, 5);
    hide(u"Chatter"_s);
    EXPECT_GT(wakeUpsByTitles(window), whileShown) << "hidden windows are watched";
    unhide(u"Chatter"_s);
}

TEST_F(X11CostTest, DoesNotWaitForTheServerToTellTheFrontmostAgain) {
    ClientProcess client;
    desktop.openActive(client, chat);
    const Reports reports(*workspace);
    desktop.staysTrue([] { return true; });
    const auto timesWaited = [] {
        rusage usage{};
        getrusage(RUSAGE_THREAD, &usage);
        return usage.ru_nvcsw;
    };
    const auto before = timesWaited();
    for (int i = 0; i < 100; ++i) {
        const auto frontmost = workspace->frontmostApplication();
        ASSERT_TRUE(frontmost);
        EXPECT_EQ(frontmost->localizedName, u"Chatter");
    }
    EXPECT_LE(timesWaited() - before, 10);
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
    EXPECT_LE(report("200 windows listed", times), 100);
    const Reports reports(*workspace);
    times.clear();
    for (int i = 0; i < 20; ++i) {
        const auto start = steady_clock::now();
        workspace->frontmostApplication();
        times.push_back(Milliseconds(steady_clock::now() - start).count());
    }
    EXPECT_LE(report("frontmost of 200 windows", times), 50);
}

} // namespace
} // namespace tolvar::test
