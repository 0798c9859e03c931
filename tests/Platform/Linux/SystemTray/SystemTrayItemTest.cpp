#include "Platform/Linux/SystemTray/SystemTrayItem.h"

#include "Platform/Linux/SystemTray/FakeTray.h"
#include "Platform/Linux/SystemTray/SystemTrayPlace.h"
#include "Platform/Linux/SystemTray/TrayFixture.h"
#include "Platform/Linux/SystemTray/TrayInk.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using Presence = StatusItemPlace::Presence;

constexpr QColor light{237, 234, 228};
constexpr QColor dark{30, 29, 27};

/// With a tray that belongs to the test.
class SystemTrayItemTest : public TrayFixture {
protected:
    std::unique_ptr<FakeTray> tray;

    /// Handles events on both sides until it holds.
    bool becomes(const std::function<bool()>& holds) {
        return eventually([&] {
            if (tray)
                tray->work();
            return holds();
        });
    }
    void openTray(const FakeTray::Look& look = {}) { tray = std::make_unique<FakeTray>(look); }
    /// The item is docked, and drawn.
    void appear(double scale = 1) {
        makeItem(scale);
        if (!becomes([&] { return !painted.empty(); }))
            throw std::runtime_error("the item is not drawn");
    }
    QPoint castleMiddle() const {
        return FakeTray::corner +
               QPoint(FakeTray::firstIcon + FakeTray::thickness / 2, FakeTray::thickness / 2);
    }
};

TEST_F(SystemTrayItemTest, DocksIntoTheTrayAndIsDrawnThere) {
    openTray();
    appear();
    EXPECT_TRUE(tray->iconWantsToBeMapped());
    EXPECT_EQ(painted.back().size, QSizeF(24, 24));
    EXPECT_TRUE(becomes([&] { return tray->colorAt(castleMiddle()) == light; }));
}

TEST_F(SystemTrayItemTest, SaysWhereTheCastleStands) {
    openTray();
    appear();
    EXPECT_EQ(item->anchor(),
              QRect(FakeTray::corner + QPoint(FakeTray::firstIcon + 4, 4), QSize(16, 16)));
}

TEST_F(SystemTrayItemTest, IsAsWideAsTheTrayLetsItBe) {
    openTray();
    appear();
    item->show(countdown(60));
    EXPECT_TRUE(becomes([&] { return painted.back().size == QSizeF(60, 24); }));
    EXPECT_FALSE(painted.back().content.isLabelHidden);
    EXPECT_EQ(tray->iconSize(), QSize(60, 24));
}

TEST_F(SystemTrayItemTest, RemindsATrayThatForgotTheSize) {
    openTray();
    appear();
    tray->forgetASize();
    item->show(countdown(60));
    EXPECT_TRUE(becomes([&] { return painted.back().size == QSizeF(60, 24); }));
}

TEST_F(SystemTrayItemTest, ShowsTheCastleAloneWhereItStaysSquare) {
    openTray({.widths = FakeTray::Widths::refused});
    appear();
    painted.clear();
    item->show(countdown(60));
    EXPECT_TRUE(becomes([&] { return !painted.empty(); }));
    EXPECT_TRUE(painted.back().content.isLabelHidden);
    EXPECT_EQ(painted.back().size, QSizeF(24, 24));
}

TEST_F(SystemTrayItemTest, MeasuresInPoints) {
    openTray();
    appear(2);
    EXPECT_EQ(item->iconOnlyLength(), 12);
    EXPECT_EQ(painted.back().size, QSizeF(12, 12));
    item->show(countdown(40));
    EXPECT_TRUE(becomes([&] { return tray->iconSize() == QSize(80, 24); }));
}

TEST_F(SystemTrayItemTest, DrawsOnlyWhatIsSeenToChange) {
    openTray();
    appear();
    item->show(countdown(60));
    becomes([&] { return painted.back().size.width() == 60; });
    painted.clear();
    auto content = countdown(60);
    content.menu = {{.text = u"Stop"_s}};
    content.isSessionActive = true;
    item->show(content);
    EXPECT_TRUE(painted.empty());
    content.opacity = 0.5;
    item->show(content);
    EXPECT_EQ(painted.size(), 1u);
}

TEST_F(SystemTrayItemTest, HasTheTraysInkWhereItOffersOneThatCanBeRead) {
    openTray({.ink = QColor(255, 200, 200)});
    appear();
    EXPECT_EQ(painted.back().ink, QColor(255, 200, 200));
}

TEST_F(SystemTrayItemTest, ChoosesAnInkByTheBackground) {
    openTray({.background = QColor(240, 240, 240), .ink = QColor(255, 255, 255)});
    appear();
    EXPECT_EQ(painted.back().ink, dark);
}

TEST_F(SystemTrayItemTest, HasAnAlphaChannelWhereTheTrayOffersOne) {
    openTray({.visual = FakeTray::Visual::withAlpha});
    appear();
    EXPECT_EQ(tray->iconDepth(), 32);
    EXPECT_EQ(painted.back().ink, light);
}

TEST_F(SystemTrayItemTest, TellsWhenThePanelMoves) {
    openTray();
    appear();
    becomes([&] { return told.contains(u"moved"_s); });
    told.clear();
    tray->move({200, 80});
    EXPECT_TRUE(becomes([&] { return told.contains(u"moved"_s); }));
    EXPECT_EQ(item->anchor()->topLeft(), QPoint(200 + FakeTray::firstIcon + 4, 84));
}

TEST_F(SystemTrayItemTest, TellsWhenThePanelHasAnotherThickness) {
    openTray();
    appear();
    told.clear();
    tray->setThickness(32);
    EXPECT_TRUE(becomes([&] { return told.contains(u"measured"_s); }));
    EXPECT_EQ(item->iconOnlyLength(), 32);
}

TEST_F(SystemTrayItemTest, TellsOfClicks) {
    openTray();
    appear();
    told.clear();
    tray->click(XCB_BUTTON_INDEX_1);
    EXPECT_TRUE(becomes([&] { return told.contains(u"clicked 122 62"_s); }));
}

TEST_F(SystemTrayItemTest, OpensItsMenu) {
    openTray();
    appear();
    auto content = countdown(24);
    content.menu = {{.command = StatusCommand::stop, .text = u"Stop"_s}};
    item->show(content);
    tray->click(XCB_BUTTON_INDEX_3);
    EXPECT_TRUE(becomes([&] { return popups.menu == content.menu; }));
    EXPECT_EQ(popups.place, QRect(110, 50, 24, 24));
    popups.chosen(StatusCommand::stop);
    EXPECT_TRUE(told.contains(u"chosen 2"_s));
}

TEST_F(SystemTrayItemTest, OpensATooltipForAPointerThatRestsAndKeepsItUpToDate) {
    openTray();
    appear();
    item->show(countdown(60));
    tray->cross(FakeTray::Crossing::enters);
    EXPECT_TRUE(becomes([&] { return popups.toolTip == u"Tolvar, 24:59 remaining"_s; }));
    auto content = countdown(60);
    content.toolTip = u"Tolvar, 24:58 remaining"_s;
    item->show(content);
    EXPECT_EQ(popups.toolTip, u"Tolvar, 24:58 remaining"_s);
    tray->cross(FakeTray::Crossing::leaves);
    EXPECT_TRUE(becomes([&] { return popups.toolTip.isEmpty(); }));
}

TEST_F(SystemTrayItemTest, WaitsOutsideUntilATrayComes) {
    makeItem();
    EXPECT_EQ(item->anchor(), std::nullopt);
    item->show(countdown(60));
    openTray();
    EXPECT_TRUE(becomes([&] { return item->anchor() && !painted.empty(); }));
    EXPECT_TRUE(becomes([&] { return painted.back().size.width() == 60; }));
}

TEST_F(SystemTrayItemTest, DocksAgainWhenTheTrayEndsAndAnotherComes) {
    openTray();
    appear();
    tray.reset();
    EXPECT_TRUE(becomes([&] { return !item->anchor(); }));
    painted.clear();
    openTray();
    EXPECT_TRUE(becomes([&] { return item->anchor() && !painted.empty(); }));
}

TEST_F(SystemTrayItemTest, DocksAgainWhenItIsThrownOut) {
    openTray();
    appear();
    const xcb_window_t former = tray->icon();
    tray->release();
    EXPECT_TRUE(becomes([&] { return tray->docks() == 2 && item->anchor(); }));
    EXPECT_NE(tray->icon(), former);
}

TEST_F(SystemTrayItemTest, AsksATrayAgainThatDoesNotShowIt) {
    openTray();
    makeItem();
    EXPECT_TRUE(eventually([&] {
        tray->hideIcons();
        tray->work();
        return tray->docks() == 2;
    }));
}

TEST_F(SystemTrayItemTest, LeavesTheTrayWhenItEnds) {
    openTray();
    appear();
    item.reset();
    EXPECT_TRUE(becomes([&] { return tray->icon() == xcb_window_t(XCB_NONE); }));
}

TEST_F(SystemTrayItemTest, IsPlacedWhereATrayIs) {
    EXPECT_EQ(place->presence(), Presence::absent);
    EXPECT_EQ(place->hostProcess(), 0);
    int changes = 0;
    const auto changed = place->observePresence([&] { ++changes; });
    openTray();
    EXPECT_TRUE(becomes([&] { return changes == 1; }));
    EXPECT_EQ(place->presence(), Presence::present);
    EXPECT_EQ(place->hostProcess(), QCoreApplication::applicationPid());
    tray.reset();
    EXPECT_TRUE(becomes([&] { return changes == 2; }));
    EXPECT_EQ(place->presence(), Presence::absent);
}

TEST(TrayInk, IsTheOneOfferedWhenTheBackgroundIsNotKnown) {
    EXPECT_EQ(trayInk(QColor(1, 2, 3), {}), QColor(1, 2, 3));
    EXPECT_EQ(trayInk({}, {}), light);
}

TEST(TrayInk, CanBeReadOnEveryBackground) {
    for (int grey = 0; grey < 256; grey += 5) {
        const QColor ink = trayInk(QColor(128, 128, 128), QColor(grey, grey, grey));
        EXPECT_GE(std::abs(ink.green() - grey), 55) << grey;
    }
}

} // namespace
} // namespace tolvar::test
