#include "Platform/Linux/StatusNotifier/StatusNotifierItem.h"

#include "Platform/Linux/DBus/PrivateBus.h"
#include "Platform/Linux/StatusNotifier/FakeStatusWatcher.h"
#include "Platform/Linux/StatusNotifier/StatusHost.h"
#include "Platform/Linux/StatusNotifier/StatusNotifierPlace.h"
#include "Support/Texts.h"

#include <QColor>
#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using Presence = StatusItemPlace::Presence;

/// A castle as it is drawn in the tests: a square. A character is 7 points wide.
StatusItemArt testArt() {
    return {
        .iconWidth = [](double) { return 15.0; },
        .labelWidth = [](const QString& label,
                         double) { return 7.0 * static_cast<double>(label.size()); },
        .iconPlace = {},
        .paint = {},
        .paintIcon = [](QPainter& painter, const QRectF& box,
                        const QColor& ink) { painter.fillRect(box, ink); },
    };
}

class RecordingPopups final : public StatusItemPopups {
public:
    std::vector<StatusMenuEntry> entries;
    QRect place;
    std::function<void(StatusCommand)> chosen;

    void showMenu(const std::vector<StatusMenuEntry>& shown, const QRect& item,
                  std::function<void(StatusCommand)> choose) override {
        entries = shown;
        place = item;
        chosen = std::move(choose);
    }
    void showToolTip(const QString&, const QRect&) override {}
    void hideToolTip() override {}
};

std::vector<StatusMenuEntry> shortMenu(const QString& pause = u"Pause"_s) {
    return {{.command = StatusCommand::open, .text = u"Open Tolvar"_s},
            {.command = StatusCommand::pauseOrResume,
             .text = pause,
             .group = StatusMenuEntry::Group::begins},
            {.command = StatusCommand::stop, .text = u"Stop"_s, .isEnabled = false}};
}

StatusItemContent countdown(const QString& clock) {
    return {.length = 60,
            .label = clock,
            .isLabelHidden = false,
            .accessibleLabel = u"Tolvar, %1 remaining"_s.arg(clock),
            .toolTip = u"Tolvar, %1 remaining"_s.arg(clock),
            .menu = shortMenu()};
}

const QString service =
    u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid());

class StatusNotifierItemTest : public testing::Test {
protected:
    PrivateBus bus;
    QDBusConnection panelBus = bus.connect();
    QDBusConnection itemBus = bus.connect();
    RecordingPopups popups;
    FakeStatusWatcher watcher{panelBus, true};
    QStringList told;
    std::unique_ptr<StatusNotifierItem> item;
    Subscription subscription;

    StatusNotifierItem::Options options() {
        return {.bus = itemBus,
                .identifier = u"app.tolvar.Tolvar"_s,
                .title = u"Tolvar"_s,
                .iconThemePath = u"/icons"_s,
                .art = testArt(),
                .popups = popups};
    }
    /// The item is there and registered.
    StatusHost appear() {
        item = std::make_unique<StatusNotifierItem>(options());
        subscription = item->observe(
            {.clicked =
                 [this](auto claimed) {
                     told += claimed ? u"clicked %1 %2"_s.arg(claimed->x()).arg(claimed->y())
                                     : u"clicked"_s;
                 },
             .chosen =
                 [this](StatusCommand command) { told += u"chosen %1"_s.arg(int(command)); }});
        eventually([&] { return !watcher.registered().isEmpty(); });
        return StatusHost(panelBus, service);
    }
    bool isOnTheBus() const { return panelBus.interface()->isServiceRegistered(service); }
};

TEST_F(StatusNotifierItemTest, RegistersUnderANameOfItsOwn) {
    appear();
    EXPECT_EQ(watcher.registered(), QStringList(service));
    item.reset();
    EXPECT_FALSE(isOnTheBus());
}

TEST_F(StatusNotifierItemTest, RegistersAgainWhenTheWatcherComesBack) {
    appear();
    watcher.leave();
    watcher.comeBack();
    EXPECT_TRUE(eventually([&] { return watcher.registered().size() == 2; }));
}

TEST_F(StatusNotifierItemTest, SaysWhatItIs) {
    auto host = appear();
    item->show(countdown(u"24:59"_s));
    EXPECT_EQ(host.itemProperty(u"Category"_s), u"ApplicationStatus"_s);
    EXPECT_EQ(host.itemProperty(u"Id"_s), u"app.tolvar.Tolvar"_s);
    EXPECT_EQ(host.itemProperty(u"Title"_s), u"Tolvar"_s);
    EXPECT_EQ(host.itemProperty(u"Status"_s), u"Active"_s);
    EXPECT_EQ(host.itemProperty(u"ItemIsMenu"_s), false);
    EXPECT_EQ(host.itemProperty(u"IconThemePath"_s), u"/icons"_s);
    EXPECT_EQ(host.itemProperty(u"IconName"_s), u"app.tolvar.Tolvar-symbolic"_s);
    EXPECT_EQ(host.itemProperty(u"IconAccessibleDesc"_s), u"Tolvar, 24:59 remaining"_s);
    EXPECT_EQ(qdbus_cast<StatusToolTip>(host.itemProperty(u"ToolTip"_s)).title,
              u"Tolvar, 24:59 remaining"_s);
    EXPECT_EQ(host.itemProperty(u"Menu"_s).value<QDBusObjectPath>().path(),
              u"/StatusNotifierItem/Menu"_s);
}

TEST_F(StatusNotifierItemTest, ShowsTheCountdownWithAGuideOfConstantWidth) {
    auto host = appear();
    item->show(countdown(u"24:59"_s));
    EXPECT_EQ(host.itemProperty(u"XAyatanaLabel"_s), u"24:59"_s);
    EXPECT_EQ(host.itemProperty(u"XAyatanaLabelGuide"_s), u"00:00"_s);
    host.takeSignals();
    item->show(countdown(u"9:59"_s));
    EXPECT_EQ(host.takeSignals(),
              (QStringList{u"XAyatanaNewLabel(9:59, 0:00)"_s, u"NewToolTip"_s}));
}

TEST_F(StatusNotifierItemTest, ShowsNoLabelThatIsHidden) {
    auto host = appear();
    item->show(countdown(u"24:59"_s));
    host.takeSignals();
    auto content = countdown(u"24:59"_s);
    content.isLabelHidden = true;
    item->show(content);
    EXPECT_EQ(host.takeSignals(), QStringList(u"XAyatanaNewLabel(, )"_s));
    EXPECT_EQ(host.itemProperty(u"XAyatanaLabel"_s), u""_s);
}

TEST_F(StatusNotifierItemTest, SaysNothingThatHostsDoNotNeedToKnow) {
    auto host = appear();
    auto content = countdown(u"24:59"_s);
    item->show(content);
    host.takeSignals();
    content.length = 40;
    content.isSessionActive = true;
    item->show(content);
    item->show(content);
    EXPECT_EQ(host.takeSignals(), QStringList());
}

TEST_F(StatusNotifierItemTest, PulsesInAFewSteps) {
    auto host = appear();
    auto content = countdown(u"24:59"_s);
    item->show(content);
    host.takeSignals();
    QStringList names(host.itemProperty(u"IconName"_s).toString());
    for (int tick = 0; tick < 60; ++tick) {
        content.opacity = 0.65 + 0.35 * std::sin(tick * 2 * 3.14159265 / 60);
        item->show(content);
        const QStringList heard = host.takeSignals();
        EXPECT_TRUE(heard.isEmpty() || heard == QStringList(u"NewIcon"_s));
        if (!heard.isEmpty())
            names += host.itemProperty(u"IconName"_s).toString();
    }
    EXPECT_LE(names.size(), 8);
    names.removeDuplicates();
    EXPECT_EQ(names.size(), 4);
}

TEST_F(StatusNotifierItemTest, HasPicturesForHostsThatKnowNoneOfItsNames) {
    auto host = appear();
    auto content = countdown(u"24:59"_s);
    item->show(content);
    const auto middleAlpha = [&] {
        const auto pixmaps = qdbus_cast<StatusIconPixmaps>(host.itemProperty(u"IconPixmap"_s));
        const StatusIconPixmap& pixmap = pixmaps.at(1);
        EXPECT_EQ(pixmap.width, 22);
        EXPECT_EQ(pixmap.bytes.size(), 22 * 22 * 4);
        const auto alphaAt = [&](int x, int y) {
            return static_cast<uchar>(pixmap.bytes.at((y * 22 + x) * 4));
        };
        EXPECT_EQ(alphaAt(0, 0), 0);
        return alphaAt(11, 11);
    };
    EXPECT_EQ(middleAlpha(), 255);
    content.opacity = 0.3;
    item->show(content);
    EXPECT_NEAR(middleAlpha(), 0.3 * 255, 2);
}

TEST_F(StatusNotifierItemTest, TellsWhereItWasClickedAsTheHostSaysIt) {
    auto host = appear();
    host.callItem(u"Activate"_s, {1800, 12});
    host.callItem(u"SecondaryActivate"_s, {1801, 13});
    host.callItem(u"XAyatanaSecondaryActivate"_s, {77u});
    host.callItem(u"Scroll"_s, {120, u"vertical"_s});
    EXPECT_TRUE(eventually([&] { return told.size() == 3; }));
    EXPECT_EQ(told, (QStringList{u"clicked 1800 12"_s, u"clicked 1801 13"_s, u"clicked"_s}));
}

TEST_F(StatusNotifierItemTest, MayBeTakenAwayByItsOwnClick) {
    auto host = appear();
    const auto dropping = item->observe({.clicked = [&](auto) { item.reset(); }});
    EXPECT_EQ(host.callItem(u"Activate"_s, {1, 1}).type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(eventually([&] { return item == nullptr; }));
}

TEST_F(StatusNotifierItemTest, OffersItsMenu) {
    auto host = appear();
    item->show(countdown(u"24:59"_s));
    EXPECT_EQ(host.menuLines(), (QStringList{u"Open Tolvar"_s, u"-"_s, u"Pause"_s, u"(Stop)"_s}));
    EXPECT_EQ(host.menuProperty(u"Version"_s), 3u);
    EXPECT_EQ(host.menuProperty(u"Status"_s), u"normal"_s);
    EXPECT_EQ(host.callMenu(u"AboutToShow"_s, {0}).arguments(), QVariantList{false});
}

TEST_F(StatusNotifierItemTest, TellsWhatIsChosenFromTheMenu) {
    auto host = appear();
    item->show(countdown(u"24:59"_s));
    host.choose(u"Pause"_s);
    host.choose(u"Stop"_s);
    host.choose(u"Open Tolvar"_s);
    EXPECT_TRUE(eventually([&] { return told.size() == 2; }));
    EXPECT_EQ(told, (QStringList{u"chosen 1"_s, u"chosen 0"_s}));
}

TEST_F(StatusNotifierItemTest, TakesEventsInGroupsAndNamesTheUnknown) {
    auto host = appear();
    item->show(countdown(u"24:59"_s));
    const MenuEvents events{{2, u"clicked"_s, QDBusVariant(0), 0},
                            {99, u"clicked"_s, QDBusVariant(0), 0},
                            {1, u"hovered"_s, QDBusVariant(0), 0}};
    const auto reply = host.callMenu(u"EventGroup"_s, {QVariant::fromValue(events)});
    EXPECT_EQ(qdbus_cast<QList<int>>(reply.arguments().value(0)), QList<int>{99});
    EXPECT_TRUE(eventually([&] { return !told.isEmpty(); }));
    EXPECT_EQ(told, QStringList(u"chosen 1"_s));
}

TEST_F(StatusNotifierItemTest, TellsWhichEntriesHaveChanged) {
    auto host = appear();
    auto content = countdown(u"24:59"_s);
    item->show(content);
    EXPECT_EQ(host.takeSignals().last(), u"NewToolTip"_s);
    content.menu = shortMenu(u"Resume_it"_s);
    item->show(content);
    EXPECT_EQ(host.takeSignals(), QStringList(u"ItemsPropertiesUpdated(Resume__it)"_s));
    content.menu.pop_back();
    item->show(content);
    EXPECT_EQ(host.takeSignals(), QStringList(u"LayoutUpdated"_s));
}

TEST_F(StatusNotifierItemTest, AnswersForSinglePropertiesOfTheMenu) {
    auto host = appear();
    item->show(countdown(u"24:59"_s));
    const auto reply = host.callMenu(
        u"GetGroupProperties"_s, {QVariant::fromValue(QList<int>{1, 2}), QStringList(u"label"_s)});
    EXPECT_EQ(qdbus_cast<MenuItems>(reply.arguments().value(0)),
              (MenuItems{{1, {{u"label"_s, u"Open Tolvar"_s}}}, {2, {{u"label"_s, u"Pause"_s}}}}));
    EXPECT_EQ(host.callMenu(u"GetProperty"_s, {3, u"enabled"_s})
                  .arguments()
                  .value(0)
                  .value<QDBusVariant>()
                  .variant(),
              false);
}

TEST_F(StatusNotifierItemTest, OpensTheMenuItselfForAHostThatAsksForIt) {
    auto host = appear();
    item->show(countdown(u"24:59"_s));
    host.callItem(u"ContextMenu"_s, {50, 60});
    ASSERT_TRUE(popups.chosen);
    EXPECT_EQ(popups.entries, shortMenu());
    EXPECT_EQ(popups.place.topLeft(), QPoint(50, 60));
    popups.chosen(StatusCommand::open);
    EXPECT_EQ(told, QStringList(u"chosen 0"_s));
}

class StatusNotifierPlaceTest : public StatusNotifierItemTest {
protected:
    bool becomes(const StatusItemPlace& place, Presence presence) {
        return eventually([&] { return place.presence() == presence; });
    }
};

TEST_F(StatusNotifierPlaceTest, IsThereWhereAHostIsRegistered) {
    const StatusNotifierPlace place(options());
    EXPECT_EQ(place.presence(), Presence::unknown);
    EXPECT_TRUE(becomes(place, Presence::present));
    EXPECT_EQ(place.hostProcess(), QCoreApplication::applicationPid());
}

TEST_F(StatusNotifierPlaceTest, IsNotThereWhereAWatcherHasNobodyToShowItems) {
    watcher.setHost(false);
    const StatusNotifierPlace place(options());
    EXPECT_TRUE(becomes(place, Presence::absent));
}

TEST_F(StatusNotifierPlaceTest, IsNotThereWithoutAWatcherOrABus) {
    watcher.leave();
    const StatusNotifierPlace withoutWatcher(options());
    EXPECT_TRUE(becomes(withoutWatcher, Presence::absent));
    auto unconnected = options();
    unconnected.bus = QDBusConnection(u"nowhere"_s);
    EXPECT_EQ(StatusNotifierPlace(unconnected).presence(), Presence::absent);
}

TEST_F(StatusNotifierPlaceTest, ComesAndGoesWithTheHostAndWithTheWatcher) {
    StatusNotifierPlace place(options());
    int changes = 0;
    const auto changed = place.observePresence([&] { ++changes; });
    ASSERT_TRUE(becomes(place, Presence::present));
    watcher.setHost(false);
    EXPECT_TRUE(becomes(place, Presence::absent));
    watcher.setHost(true);
    EXPECT_TRUE(becomes(place, Presence::present));
    watcher.leave();
    EXPECT_TRUE(becomes(place, Presence::absent));
    watcher.comeBack();
    EXPECT_TRUE(becomes(place, Presence::present));
    EXPECT_EQ(changes, 5);
}

TEST_F(StatusNotifierPlaceTest, MakesItemsThatRegister) {
    StatusNotifierPlace place(options());
    const auto made = place.makeItem();
    EXPECT_TRUE(eventually([&] { return watcher.registered() == QStringList(service); }));
}

} // namespace
} // namespace tolvar::test
