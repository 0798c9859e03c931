#include "App/StatusItems/StatusItems.h"

#include "App/MenuBar/ChosenStatusItem.h"
#include "Motion/AnimationDriver.h"
#include "Platform/Linux/DBus/PrivateBus.h"
#include "Platform/Linux/StatusNotifier/FakeStatusWatcher.h"
#include "Platform/Linux/SystemTray/FakeTray.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Support/HandClock.h"
#include "Support/HandFrames.h"
#include "Views/StatusPill/StatusPill.h"
#include "Views/StatusPill/StatusPopups.h"

#include <QApplication>
#include <QDBusConnectionInterface>
#include <QTest>

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

const double grace = std::chrono::duration<double>(ChosenStatusItem::grace).count();

class StatusItemsTest : public testing::Test {
protected:
    PrivateBus bus;
    QDBusConnection panelBus = bus.connect();
    QDBusConnection itemBus = bus.connect();
    std::unique_ptr<FakeStatusWatcher> watcher;
    std::unique_ptr<FakeTray> tray;
    MemoryPreferences preferences;
    HandClock clock;
    HandFrames frames;
    AnimationDriver motion{frames};
    StatusPopups popups;
    std::unique_ptr<StatusItem> item;

    void begin() {
        item = StatusItems::make({.bus = itemBus,
                                  .bundle = {.identifier = u"app.tolvar.Tolvar"_s,
                                             .name = u"Tolvar"_s,
                                             .shortVersion = {},
                                             .updateFeedUrl = {},
                                             .resourcesPath = {},
                                             .executablePath = {},
                                             .browserHostPath = {}},
                                  .preferences = preferences,
                                  .timers = clock,
                                  .motion = motion,
                                  .popups = popups});
        item->show({.length = 24, .accessibleLabel = u"Tolvar"_s});
    }
    static bool isPill() {
        const auto widgets = QApplication::topLevelWidgets();
        return std::any_of(widgets.begin(), widgets.end(), [](QWidget* widget) {
            return qobject_cast<StatusPill*>(widget) && widget->isVisible();
        });
    }
    bool isInTheTray() const { return tray && tray->icon() != xcb_window_t(XCB_NONE); }
    /// Where it is: "bus", "tray", "pill", in this order.
    QString places() const {
        QStringList names;
        if (panelBus.interface()->isServiceRegistered(
                u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid())))
            names += u"bus"_s;
        if (isInTheTray())
            names += u"tray"_s;
        if (isPill())
            names += u"pill"_s;
        return names.join(u' ');
    }
    bool comesTo(const QString& expected) {
        return QTest::qWaitFor([&] {
            if (tray)
                tray->work();
            return places() == expected;
        });
    }
    /// Until the bus has told that it has no watcher.
    void letTheBusAnswer() {
        EXPECT_FALSE(QTest::qWaitFor([&] { return places() != u""_s; }, 100));
    }
};

TEST_F(StatusItemsTest, AreOnTheBusWhereAPanelShowsThem) {
    watcher = std::make_unique<FakeStatusWatcher>(panelBus, true);
    begin();
    EXPECT_TRUE(comesTo(u"bus"_s));
}

TEST_F(StatusItemsTest, AreInTheTrayWhereThereIsOne) {
    tray = std::make_unique<FakeTray>(FakeTray::Look{});
    begin();
    EXPECT_TRUE(comesTo(u"tray"_s));
}

TEST_F(StatusItemsTest, AreAPillWhereThereIsNeitherAndNotBeforeTheGraceIsOver) {
    begin();
    letTheBusAnswer();
    clock.advance(grace);
    EXPECT_TRUE(comesTo(u"pill"_s));
}

TEST_F(StatusItemsTest, MoveToATrayThatComesAndToTheCornerWhenItIsGoneForGood) {
    begin();
    letTheBusAnswer();
    clock.advance(grace);
    ASSERT_TRUE(comesTo(u"pill"_s));
    tray = std::make_unique<FakeTray>(FakeTray::Look{});
    EXPECT_TRUE(comesTo(u"tray"_s));
    tray.reset();
    letTheBusAnswer();
    clock.advance(grace);
    EXPECT_TRUE(comesTo(u"pill"_s));
}

TEST_F(StatusItemsTest, StayInTheTrayOfAProgramThatShowsItemsOfTheBusToo) {
    tray = std::make_unique<FakeTray>(FakeTray::Look{});
    watcher = std::make_unique<FakeStatusWatcher>(panelBus, true);
    begin();
    EXPECT_TRUE(comesTo(u"tray"_s));
    tray.reset();
    EXPECT_TRUE(comesTo(u"bus"_s));
}

TEST_F(StatusItemsTest, AreNowhereAnyMoreWhenTheyEnd) {
    watcher = std::make_unique<FakeStatusWatcher>(panelBus, true);
    begin();
    ASSERT_TRUE(comesTo(u"bus"_s));
    item.reset();
    EXPECT_TRUE(comesTo(u""_s));
}

} // namespace
} // namespace tolvar::test
