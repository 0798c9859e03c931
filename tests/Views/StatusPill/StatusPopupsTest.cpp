#include "Views/StatusPill/StatusPopups.h"

#include "Support/Texts.h"
#include "Views/Shared/DevicePixels.h"

#include <QApplication>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include <optional>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

const std::vector<StatusMenuEntry> entries{
    {.command = StatusCommand::open, .text = u"Open Tolvar"_s},
    {.command = StatusCommand::stop,
     .text = u"Stop"_s,
     .isEnabled = false,
     .group = StatusMenuEntry::Group::begins}};

TEST(StatusPopups, OpenAMenuWithEveryEntry) {
    StatusPopups popups;
    std::optional<StatusCommand> chosen;
    popups.showMenu(entries, {10, 10, 24, 24}, [&](StatusCommand command) { chosen = command; });
    ASSERT_TRUE(popups.menu()->isVisible());
    const auto actions = popups.menu()->actions();
    ASSERT_EQ(actions.size(), 3);
    EXPECT_EQ(actions[0]->text(), u"Open Tolvar"_s);
    EXPECT_TRUE(actions[1]->isSeparator());
    EXPECT_FALSE(actions[2]->isEnabled());
    actions[0]->trigger();
    EXPECT_EQ(chosen, StatusCommand::open);
}

TEST(StatusPopups, OpenAMenuBelowAnItemAtTheTopAndAboveOneAtTheBottom) {
    StatusPopups popups;
    popups.showMenu(entries, {100, 10, 24, 24}, {});
    EXPECT_EQ(popups.menu()->pos(), QPoint(100, 34));
    popups.menu()->close();
    popups.showMenu(entries, {100, 500, 24, 24}, {});
    EXPECT_EQ(popups.menu()->geometry().bottom(), 499);
}

TEST(StatusPopups, ShowATooltipBesideTheItemAndHideIt) {
    StatusPopups popups;
    popups.showToolTip(u"Tolvar, 24:59 remaining"_s, {100, 10, 24, 24});
    EXPECT_EQ(QToolTip::text(), u"Tolvar, 24:59 remaining"_s);
    const auto bottom = [] {
        for (const QWidget* widget : QApplication::topLevelWidgets())
            if (widget->inherits("QTipLabel") && widget->isVisible())
                return widget->geometry().bottom();
        return -1;
    };
    popups.showToolTip(u"Tolvar, 24:58 remaining"_s, {100, 700, 24, 24});
    EXPECT_EQ(bottom(), 700 - 4 - 1);
    popups.hideToolTip();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST(DevicePixels, AreTheSameAsPointsAtScaleOne) {
    EXPECT_EQ(DevicePixels::toPoints({5, 6, 7, 8}), QRect(5, 6, 7, 8));
    EXPECT_EQ(DevicePixels::fromPoints({5, 6, 7, 8}), QRect(5, 6, 7, 8));
}

} // namespace
} // namespace tolvar
