#include "Views/History/HistoryView.h"

#include "Models/CategoryStore.h"
#include "Models/RecordCoding.h"
#include "Platform/Null/NullIconThemeSettings.h"
#include "Platform/Null/NullInstalledApplications.h"
#include "Support/FakeDesk.h"
#include "Support/HandFrames.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/History/HistoryCard.h"
#include "Views/History/PullIndicator.h"
#include "Views/Presets/GoalInputSheet.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Labels.h"
#include "Views/Theme/Feedback.h"

#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <stdexcept>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

constexpr Seconds hour = 3600;

/// A history of three sessions, or of as many as a test wants, seen on a Monday morning.
class HistoryViewTest : public testing::Test {
protected:
    HistoryViewTest() {
        qputenv("TZ", "UTC");
        tzset();
        QLocale::setDefault(QLocale::c());
        window.resize(400, 500);
        window.show();
        QApplication::setActiveWindow(&window);
        keep(3);
    }

    /// Oldest first: "Goal 0", an hour later "Goal 1", ...; the newest began an hour ago.
    std::vector<FocusSession> sessions(int count) {
        std::vector<FocusSession> made(static_cast<std::size_t>(count));
        for (int place = 0; place < count; ++place) {
            FocusSession& session = made[static_cast<std::size_t>(place)];
            session.goal = u"Goal %1"_s.arg(place);
            session.duration = 25 * 60;
            session.focusedTime = 25 * 60;
            session.startTime = desk.clock.now() - (count - place) * hour;
            session.outcome = SessionOutcome::completed;
        }
        return made;
    }
    /// Begins afresh with that many sessions in the history.
    void keep(int count) {
        view.reset();
        manager.reset();
        desk.preferences.setData(u"sessionHistory"_s,
                                 RecordCoding::encode(sessions(count)).value());
        manager.emplace(desk.environment());
        view = std::make_unique<HistoryView>(CardScreen::Environment{.context = {driver, feedback},
                                                                     .timers = desk.clock,
                                                                     .focusManager = *manager,
                                                                     .window = window},
                                             icons, HistoryView::Look{.topInset = 22}, &window);
        view->resize(400, 500);
        view->show();
        settle();
        desk.journal.take();
    }

    CardList& list() { return *view->findChild<CardList*>(); }
    EmptyState& empty() { return *view->findChild<EmptyState*>(); }
    GoalInputSheet& goalSheet() { return *window.findChildren<GoalInputSheet*>().back(); }
    ConfirmationSheet& question(const QString& title) {
        ConfirmationSheet* found = nullptr;
        for (auto* sheet : window.findChildren<ConfirmationSheet*>())
            if (sheet->accessibleName() == title)
                found = sheet;
        return found ? *found : throw std::runtime_error("no question " + title.toStdString());
    }
    ConfirmationSheet& clearing() { return question(u"Clear All History?"_s); }
    ConfirmationSheet& deletion() { return question(u"Delete Session?"_s); }
    SwipeActionsContainer& row(int row) { return list().containerInView(row); }
    HistoryCard& card(int place) { return static_cast<HistoryCard&>(row(place).content()); }
    SwipeAction action(int place, const QString& title) {
        for (const SwipeAction& action : row(place).actions())
            if (action.title == title)
                return action;
        throw std::runtime_error("no action " + title.toStdString());
    }
    KeyButton& key(QWidget& parent, const QString& name) {
        for (KeyButton* key : parent.findChildren<KeyButton*>())
            if (key->name() == name)
                return *key;
        throw std::runtime_error("no key " + name.toStdString());
    }
    QStringList goals() {
        QStringList goals;
        for (int place = 0; place < static_cast<int>(list().ids().size()); ++place)
            goals << card(place).content().goal;
        return goals;
    }
    void pull(double points) { Q_EMIT list().pulled(points, CardList::Hand::holds); }
    void letGo(double points) {
        Q_EMIT list().pullReleased(points);
        Q_EMIT list().pulled(points, CardList::Hand::off);
    }
    void settle() { frames.advance(5); }

    FakeDesk desk;
    HandFrames frames;
    AnimationDriver driver{frames};
    Feedback feedback{desk.preferences, desk.haptics, desk.sound};
    NullInstalledApplications installed;
    NullIconThemeSettings theme;
    ApplicationIcons icons{{installed, desk.workspace, theme}};
    std::optional<FocusManager> manager;
    QWidget window;
    std::unique_ptr<HistoryView> view;
};

TEST_F(HistoryViewTest, ShowsTheNewestFirst) {
    EXPECT_EQ(goals(), (QStringList{u"Goal 2"_s, u"Goal 1"_s, u"Goal 0"_s}));
    EXPECT_EQ(card(0).content().date, u"Today, 8:00 AM");
    EXPECT_EQ(list().rowRect(0).top(), 22);
}

TEST_F(HistoryViewTest, SaysThatThereAreNone) {
    keep(0);
    EXPECT_TRUE(empty().isVisible());
    EXPECT_FALSE(list().isVisible());
    EXPECT_EQ(empty().accessibleName(), u"No sessions yet");
    EXPECT_EQ(empty().accessibleDescription(),
              u"Start your first focus session to see your history here.");
}

TEST_F(HistoryViewTest, PutsASessionThatEndsOnTop) {
    FocusSession session;
    session.goal = u"New"_s;
    session.duration = 60;
    manager->startSession(session);
    manager->stopSession();
    EXPECT_EQ(goals().front(), u"New");
    EXPECT_EQ(card(0).content().outcomeText(), u"Ended early");
}

TEST_F(HistoryViewTest, OffersToStartToSaveAndToDelete) {
    const auto& actions = row(0).actions();
    ASSERT_EQ(actions.size(), 3u);
    EXPECT_EQ(actions[0].title, u"Start");
    EXPECT_EQ(actions[1].title, u"Save");
    EXPECT_EQ(actions[2].title, u"Delete");
    EXPECT_FALSE(actions[1].isDestructive);
    EXPECT_TRUE(actions[2].isDestructive);
}

TEST_F(HistoryViewTest, StartsTheSamePlanWithANewGoal) {
    list().setOpenId(list().ids()[1]);
    action(1, u"Start"_s).action();
    EXPECT_FALSE(list().openId());
    ASSERT_TRUE(goalSheet().isUp());
    EXPECT_EQ(goalSheet().accessibleName(), u"Focus again");
    EXPECT_EQ(goalSheet().accessibleDescription(), u"25m");
    goalSheet().findChild<InstrumentField*>()->setText(u"Next"_s);
    key(goalSheet(), u"Start focus"_s).click();
    ASSERT_TRUE(manager->activeSession());
    EXPECT_EQ(manager->activeSession()->goal, u"Next");
    EXPECT_NE(manager->activeSession()->id, manager->sessionHistory()[1].id);
}

TEST_F(HistoryViewTest, StartsASessionThatWasDeletedWhileItsGoalWasWritten) {
    action(0, u"Start"_s).action();
    manager->clearHistory();
    goalSheet().findChild<InstrumentField*>()->setText(u"Next"_s);
    key(goalSheet(), u"Start focus"_s).click();
    ASSERT_TRUE(manager->activeSession());
    EXPECT_EQ(manager->activeSession()->duration, 25 * 60);
}

TEST_F(HistoryViewTest, SavesASessionOnceUntilItsPresetIsDeleted) {
    action(0, u"Save"_s).action();
    ASSERT_EQ(manager->savedPresets().size(), 1u);
    EXPECT_FALSE(action(0, u"Saved"_s).isEnabled);
    EXPECT_TRUE(action(1, u"Save"_s).isEnabled);
    action(0, u"Saved"_s).action();
    EXPECT_EQ(manager->savedPresets().size(), 1u);
    manager->deletePreset(manager->savedPresets().front());
    EXPECT_TRUE(action(0, u"Save"_s).isEnabled);
}

TEST_F(HistoryViewTest, DeletesWithTheRevealedKey) {
    list().setOpenId(list().ids()[1]);
    settle();
    key(row(1), u"Delete"_s).click();
    EXPECT_EQ(goals(), (QStringList{u"Goal 2"_s, u"Goal 0"_s}));
    EXPECT_EQ(manager->sessionHistory().size(), 2u);
}

TEST_F(HistoryViewTest, AsksBeforeTheDeleteKeyDeletes) {
    view->takeKeyboard(Qt::TabFocusReason);
    QTest::keyClick(window.focusWidget(), Qt::Key_Delete);
    ASSERT_TRUE(deletion().isUp());
    EXPECT_EQ(deletion().accessibleDescription(),
              u"This will permanently delete “Goal 2” from your history.");
    key(deletion(), u"Cancel"_s).click();
    EXPECT_EQ(manager->sessionHistory().size(), 3u);
    QTest::keyClick(window.focusWidget(), Qt::Key_Delete);
    key(deletion(), u"Delete"_s).click();
    EXPECT_EQ(goals(), (QStringList{u"Goal 1"_s, u"Goal 0"_s}));
}

TEST_F(HistoryViewTest, TakesTheQuestionBackWhenSomebodyElseDeletesTheSession) {
    Q_EMIT list().deleteRequested(list().ids().front());
    ASSERT_TRUE(deletion().isUp());
    manager->deleteSession(manager->sessionHistory().back());
    EXPECT_FALSE(deletion().isUp());
}

TEST_F(HistoryViewTest, ShowsThatItIsEmptyOnceTheLastSessionIsDeleted) {
    keep(1);
    action(0, u"Delete"_s).action();
    settle();
    EXPECT_TRUE(empty().isVisible());
    EXPECT_FALSE(list().isVisible());
}

TEST_F(HistoryViewTest, AsksWhetherToClearWhenAPullIsReleasedAtTheThreshold) {
    pull(18);
    EXPECT_TRUE(view->findChild<PullIndicator*>()->isVisible());
    letGo(18);
    ASSERT_TRUE(clearing().isUp());
    EXPECT_EQ(clearing().accessibleDescription(),
              u"This will permanently delete all your session history.");
    EXPECT_EQ(manager->sessionHistory().size(), 3u);
    key(clearing(), u"Clear All"_s).click();
    EXPECT_TRUE(manager->sessionHistory().empty());
    settle();
    EXPECT_TRUE(empty().isVisible());
}

TEST_F(HistoryViewTest, AsksNothingWhenAPullIsReleasedJustShortOfIt) {
    pull(17.9);
    letGo(17.9);
    EXPECT_FALSE(clearing().isUp());
}

TEST_F(HistoryViewTest, LeavesTheHistoryAsItIsWhenClearingIsCancelled) {
    pull(30);
    letGo(30);
    key(clearing(), u"Cancel"_s).click();
    EXPECT_EQ(manager->sessionHistory().size(), 3u);
    EXPECT_EQ(goals().size(), 3);
}

TEST_F(HistoryViewTest, TapsWhenThePullHasGoneFarEnoughUnlessTapsAreOff) {
    pull(17);
    EXPECT_THAT(desk.journal.take(), testing::IsEmpty());
    pull(18);
    EXPECT_THAT(desk.journal.take(), testing::ElementsAre(u"haptic alignment"_s));
    pull(0);
    desk.preferences.setBoolean(AppSettings::hapticsEnabled, false);
    desk.journal.take();
    pull(20);
    EXPECT_THAT(desk.journal.take(), testing::IsEmpty());
}

TEST_F(HistoryViewTest, CannotBePulledWhileItIsEmpty) {
    keep(0);
    pull(30);
    letGo(30);
    EXPECT_FALSE(clearing().isUp());
    EXPECT_FALSE(view->findChild<PullIndicator*>()->isVisible());
}

TEST_F(HistoryViewTest, TakesTheQuestionBackWhenTheHistoryIsClearedElsewhere) {
    pull(30);
    letGo(30);
    manager->clearHistory();
    EXPECT_FALSE(clearing().isUp());
}

TEST_F(HistoryViewTest, AsksNothingOnceItIsHidden) {
    pull(30);
    letGo(30);
    view->hide();
    EXPECT_FALSE(clearing().isUp());
    letGo(30);
    EXPECT_FALSE(clearing().isUp());
}

TEST_F(HistoryViewTest, SaysYesterdayAfterMidnight) {
    EXPECT_EQ(card(0).content().date, u"Today, 8:00 AM");
    desk.clock.advance(15 * hour - 1);
    EXPECT_EQ(card(0).content().date, u"Today, 8:00 AM");
    desk.clock.advance(1);
    EXPECT_EQ(card(0).content().date, u"Yesterday, 8:00 AM");
}

TEST_F(HistoryViewTest, SaysYesterdayWhenItIsOpenedADayLater) {
    view->hide();
    EXPECT_EQ(desk.clock.runningTimers(), 0u);
    desk.clock.advance(24 * hour);
    view->show();
    EXPECT_EQ(card(0).content().date, u"Yesterday, 8:00 AM");
}

TEST_F(HistoryViewTest, KeepsFewWidgetsForALongHistory) {
    keep(2000);
    EXPECT_EQ(list().ids().size(), 2000u);
    EXPECT_LT(view->findChildren<HistoryCard*>().size(), 20);
    EXPECT_EQ(card(1999).content().goal, u"Goal 0");
    EXPECT_LT(view->findChildren<HistoryCard*>().size(), 20);
}

TEST_F(HistoryViewTest, ShowsSessionsOfOneIdOnce) {
    auto twice = sessions(2);
    twice[1].id = twice[0].id;
    view.reset();
    manager.reset();
    desk.preferences.setData(u"sessionHistory"_s, RecordCoding::encode(twice).value());
    manager.emplace(desk.environment());
    HistoryView other({.context = {driver, feedback},
                       .timers = desk.clock,
                       .focusManager = *manager,
                       .window = window},
                      icons, {}, &window);
    EXPECT_EQ(other.findChild<CardList*>()->ids().size(), 1u);
}

TEST_F(HistoryViewTest, RestsWhenNothingHappens) {
    settle();
    EXPECT_FALSE(driver.isAwake());
}

} // namespace
} // namespace tolvar::test
