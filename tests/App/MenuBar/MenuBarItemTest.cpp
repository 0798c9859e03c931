#include "App/MenuBar/MenuBarItem.h"

#include "Models/AppSettings.h"
#include "Models/FocusManager.h"
#include "Support/FakeDesk.h"
#include "Support/FakeStatusItem.h"
#include "Support/HandFrames.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int iconOnly = 22;
/// ceil(2 + 15 + 5 + 5 × 6.2 + 2), and with four characters.
constexpr int wide = 55;
constexpr int narrower = 49;
constexpr Seconds minute = 60;
constexpr double halfTick = 0.025;

FocusSession plan(Seconds duration = 25 * minute) {
    FocusSession session;
    session.goal = u"Write report"_s;
    session.duration = duration;
    return session;
}

class MenuBarItemTest : public testing::Test {
protected:
    FakeDesk desk;
    HandFrames frames;
    AnimationDriver motion{frames};
    FakeStatusItem item;
    FocusManager manager{desk.environment()};
    std::unique_ptr<MenuBarItem> menuBar = make();

    std::unique_ptr<MenuBarItem> make() {
        return std::make_unique<MenuBarItem>(
            MenuBarItem::Environment{manager, desk.preferences, desk.clock, motion, item});
    }
    const StatusItemContent& content() const { return item.content(); }
    void start(Seconds duration = 25 * minute) { manager.startSession(plan(duration)); }
    void settle() { frames.advance(1); }
    void setCountdown(bool shows) {
        desk.preferences.setBoolean(AppSettings::showsMenuBarCountdown, shows);
    }
    void setReducedMotion(bool reduced) { motion.setSettings({.isReduced = reduced}); }
};

TEST_F(MenuBarItemTest, ShowsTheBareCastleWithoutASession) {
    EXPECT_EQ(content().length, iconOnly);
    EXPECT_TRUE(content().isLabelHidden);
    EXPECT_EQ(content().opacity, 1);
    EXPECT_EQ(content().accessibleLabel, u"Tolvar"_s);
    EXPECT_FALSE(content().isSessionActive);
}

TEST_F(MenuBarItemTest, LetsNoTimerRunWithoutASession) {
    EXPECT_EQ(desk.clock.runningTimers(), 0u);
    EXPECT_FALSE(frames.isRunning());
    start();
    manager.pauseSession();
    settle();
    manager.stopSession();
    settle();
    EXPECT_EQ(desk.clock.runningTimers(), 0u);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(MenuBarItemTest, WidensToTheCountdownWhenASessionStarts) {
    start();
    EXPECT_EQ(content().label, u"25:00"_s);
    EXPECT_FALSE(content().isLabelHidden);
    EXPECT_EQ(content().length, iconOnly);
    EXPECT_TRUE(content().isSessionActive);
    settle();
    EXPECT_EQ(content().length, wide);
}

TEST_F(MenuBarItemTest, MovesAsAnEaseOutCubicInWholePoints) {
    start();
    for (const double share : {0.1, 0.25, 0.5, 0.75, 0.9}) {
        const double begun = 1000;
        frames.advance(begun + 0.45 * share - frames.mediaTime());
        const double rest = 1 - share;
        EXPECT_EQ(content().length,
                  std::lround(iconOnly + (wide - iconOnly) * (1 - rest * rest * rest)))
            << share;
    }
    frames.advance(0.45 * 0.1 + 1e-9);
    EXPECT_EQ(content().length, wide);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(MenuBarItemTest, CountsDownOnceASecond) {
    start();
    settle();
    const int before = item.changes();
    desk.clock.advance(3);
    EXPECT_EQ(content().label, u"24:57"_s);
    EXPECT_EQ(content().accessibleLabel, u"Tolvar, 24:57 remaining"_s);
    EXPECT_EQ(item.changes() - before, 3);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(MenuBarItemTest, RoundsTheRemainingTimeUp) {
    start(1 * minute + 0.4);
    EXPECT_EQ(content().label, u"1:01"_s);
    desk.clock.advance(60);
    EXPECT_EQ(content().label, u"0:01"_s);
    EXPECT_FALSE(content().isLabelHidden);
}

TEST_F(MenuBarItemTest, GoesBackToTheCastleWhenTheTimeIsUp) {
    start(1 * minute);
    settle();
    desk.clock.advance(60);
    EXPECT_EQ(content().accessibleLabel, u"Tolvar"_s);
    EXPECT_FALSE(content().isSessionActive);
    settle();
    EXPECT_EQ(content().length, iconOnly);
}

TEST_F(MenuBarItemTest, HidesTheLabelOnlyAfterItHasCollapsed) {
    start();
    settle();
    manager.stopSession();
    frames.advance(0.44);
    EXPECT_LE(content().length, iconOnly + 1);
    EXPECT_FALSE(content().isLabelHidden);
    EXPECT_EQ(content().label, u"25:00"_s);
    frames.advance(0.02);
    EXPECT_TRUE(content().isLabelHidden);
}

TEST_F(MenuBarItemTest, FollowsTheCountdownSettingAtOnce) {
    start();
    settle();
    setCountdown(false);
    frames.advance(0.2);
    EXPECT_LT(content().length, wide);
    EXPECT_FALSE(content().isLabelHidden);
    settle();
    EXPECT_EQ(content().length, iconOnly);
    EXPECT_TRUE(content().isLabelHidden);
    EXPECT_EQ(content().accessibleLabel, u"Tolvar, 25:00 remaining"_s);
    setCountdown(true);
    EXPECT_FALSE(content().isLabelHidden);
    settle();
    EXPECT_EQ(content().length, wide);
}

TEST_F(MenuBarItemTest, StartsNoAnimationForASessionWithoutCountdown) {
    setCountdown(false);
    start();
    EXPECT_FALSE(frames.isRunning());
    EXPECT_TRUE(content().isLabelHidden);
    EXPECT_EQ(content().accessibleLabel, u"Tolvar, 25:00 remaining"_s);
}

TEST_F(MenuBarItemTest, DoesNotStartAnAnimationToTheSameLengthAgain) {
    start();
    frames.advance(0.3);
    desk.clock.advance(1);
    frames.advance(0.16);
    EXPECT_EQ(content().length, wide);
    EXPECT_FALSE(frames.isRunning());
    desk.clock.advance(5);
    EXPECT_EQ(frames.starts(), 1);
}

TEST_F(MenuBarItemTest, GrowsNarrowerOnlyWhenADigitFallsAway) {
    start(10 * minute + 1);
    settle();
    desk.clock.advance(1);
    settle();
    EXPECT_EQ(content().length, wide);
    desk.clock.advance(1);
    EXPECT_EQ(content().label, u"9:59"_s);
    settle();
    EXPECT_EQ(content().length, narrower);
}

TEST_F(MenuBarItemTest, DropsTheHidingWhenItIsWidenedWhileItCollapses) {
    start();
    settle();
    setCountdown(false);
    frames.advance(0.1);
    const int halfway = content().length;
    setCountdown(true);
    EXPECT_EQ(content().length, halfway);
    settle();
    EXPECT_EQ(content().length, wide);
    EXPECT_FALSE(content().isLabelHidden);
}

TEST_F(MenuBarItemTest, StartsFromAStandstillWhenItTurnsBack) {
    start();
    frames.advance(0.2);
    const int begin = content().length;
    manager.stopSession();
    frames.advance(0.225);
    EXPECT_EQ(content().length, std::lround(begin + (iconOnly - begin) * 0.875));
}

TEST_F(MenuBarItemTest, HidesTheLabelAtOnceWhenItTurnsBackBeforeItMoved) {
    start();
    manager.stopSession();
    EXPECT_EQ(content().length, iconOnly);
    EXPECT_TRUE(content().isLabelHidden);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(MenuBarItemTest, PulsesWhilePaused) {
    start();
    settle();
    manager.pauseSession();
    EXPECT_EQ(content().opacity, 1);
    desk.clock.advance(0.05 + halfTick);
    EXPECT_DOUBLE_EQ(content().opacity, 0.3 + 0.7 * (0.5 + 0.5 * std::sin(0.10471975511965977)));
    desk.clock.advance(0.7);
    EXPECT_NEAR(content().opacity, 1, 1e-9);
    desk.clock.advance(1.5);
    EXPECT_NEAR(content().opacity, 0.3, 1e-9);
    EXPECT_EQ(content().label, u"25:00"_s);
}

TEST_F(MenuBarItemTest, IsFullyOpaqueFromTheMomentItResumesAndBeginsTheNextPulseAnew) {
    start();
    settle();
    manager.pauseSession();
    desk.clock.advance(2.2);
    ASSERT_LT(content().opacity, 0.5);
    manager.resumeSession();
    EXPECT_EQ(content().opacity, 1);
    manager.pauseSession();
    desk.clock.advance(0.05 + halfTick);
    EXPECT_DOUBLE_EQ(content().opacity, 0.3 + 0.7 * (0.5 + 0.5 * std::sin(0.10471975511965977)));
}

TEST_F(MenuBarItemTest, EndsThePulseWhenItIsStoppedWhilePaused) {
    start();
    settle();
    manager.pauseSession();
    desk.clock.advance(2.2);
    manager.stopSession();
    EXPECT_EQ(content().opacity, 1);
    EXPECT_EQ(desk.clock.runningTimers(), 0u);
}

TEST_F(MenuBarItemTest, PulsesAlsoWithoutACountdown) {
    setCountdown(false);
    start();
    manager.pauseSession();
    desk.clock.advance(2.25);
    EXPECT_NEAR(content().opacity, 0.3, 0.01);
    EXPECT_EQ(content().length, iconOnly);
}

TEST_F(MenuBarItemTest, JumpsAndStandsStillWithReducedMotion) {
    setReducedMotion(true);
    start();
    EXPECT_EQ(content().length, wide);
    EXPECT_FALSE(frames.isRunning());
    manager.pauseSession();
    desk.clock.advance(2.25);
    EXPECT_EQ(content().opacity, 1);
    manager.stopSession();
    EXPECT_EQ(content().length, iconOnly);
    EXPECT_TRUE(content().isLabelHidden);
}

TEST_F(MenuBarItemTest, FollowsReducedMotionWhileItPulses) {
    start();
    manager.pauseSession();
    desk.clock.advance(2.25);
    setReducedMotion(true);
    EXPECT_EQ(content().opacity, 1);
    EXPECT_EQ(content().length, wide);
    setReducedMotion(false);
    desk.clock.advance(2.25);
    EXPECT_LT(content().opacity, 0.5);
}

TEST_F(MenuBarItemTest, ShowsASessionThatRunsWhenItIsMade) {
    menuBar.reset();
    start();
    menuBar = make();
    EXPECT_EQ(content().label, u"25:00"_s);
    settle();
    EXPECT_EQ(content().length, wide);
}

TEST_F(MenuBarItemTest, TakesTheMeasuresOfAnotherPanelWithoutMoving) {
    start();
    settle();
    item.thickness = 30;
    item.observers.call(&StatusItem::Observer::measuresChanged);
    EXPECT_EQ(content().length, wide);
    manager.stopSession();
    settle();
    EXPECT_EQ(content().length, 30);
    item.thickness = 24;
    item.observers.call(&StatusItem::Observer::measuresChanged);
    EXPECT_EQ(content().length, 24);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(MenuBarItemTest, HidesTheLabelWhenThePanelChangesWhileItCollapses) {
    start();
    settle();
    manager.stopSession();
    frames.advance(0.1);
    item.thickness = 30;
    item.observers.call(&StatusItem::Observer::measuresChanged);
    EXPECT_EQ(content().length, 30);
    EXPECT_TRUE(content().isLabelHidden);
}

TEST_F(MenuBarItemTest, PausesResumesAndStopsFromTheMenu) {
    const auto choose = [&](StatusCommand command) {
        item.observers.call(&StatusItem::Observer::chosen, command);
    };
    start();
    choose(StatusCommand::pauseOrResume);
    EXPECT_TRUE(manager.currentSession()->isPaused);
    EXPECT_EQ(content().menu[1].text, u"Resume"_s);
    choose(StatusCommand::pauseOrResume);
    EXPECT_FALSE(manager.currentSession()->isPaused);
    choose(StatusCommand::stop);
    EXPECT_FALSE(manager.currentSession());
    choose(StatusCommand::stop);
    choose(StatusCommand::pauseOrResume);
    EXPECT_FALSE(manager.currentSession());
}

TEST_F(MenuBarItemTest, TellsWhatItDoesNotDoItself) {
    QStringList told;
    QObject::connect(menuBar.get(), &MenuBarItem::clicked,
                     [&](auto claimed) { told += claimed ? u"clicked there"_s : u"clicked"_s; });
    QObject::connect(menuBar.get(), &MenuBarItem::chosen,
                     [&](StatusCommand command) { told += QString::number(int(command)); });
    QObject::connect(menuBar.get(), &MenuBarItem::moved, [&] { told += u"moved"_s; });
    item.observers.call(&StatusItem::Observer::clicked, std::optional(QPoint(1, 1)));
    item.observers.call(&StatusItem::Observer::clicked, std::optional<QPoint>());
    for (const auto command :
         {StatusCommand::open, StatusCommand::settings, StatusCommand::checkForUpdates,
          StatusCommand::quit, StatusCommand::stop, StatusCommand::pauseOrResume})
        item.observers.call(&StatusItem::Observer::chosen, command);
    item.observers.call(&StatusItem::Observer::moved);
    EXPECT_EQ(told, (QStringList{u"clicked there"_s, u"clicked"_s, u"0"_s, u"3"_s, u"4"_s, u"5"_s,
                                 u"moved"_s}));
}

TEST_F(MenuBarItemTest, OffersToCheckForUpdatesOnceThatIsPossible) {
    EXPECT_FALSE(content().menu[4].isEnabled);
    menuBar->setUpdateCheck(UpdateCheck::possible);
    EXPECT_TRUE(content().menu[4].isEnabled);
}

} // namespace
} // namespace tolvar::test
