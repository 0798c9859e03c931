#include "Views/FocusWindow/FocusView.h"

#include "Models/CategoryStore.h"
#include "Models/RecordCoding.h"
#include "Platform/Null/NullIconThemeSettings.h"
#include "Platform/Null/NullInstalledApplications.h"
#include "Support/FakeDesk.h"
#include "Support/HandFrames.h"
#include "Views/ActiveSession/ActiveSessionView.h"
#include "Views/AppPicker/AppPickerSheet.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/FocusWindow/ModeButton.h"
#include "Views/FocusWindow/ModeSelector.h"
#include "Views/History/HistoryView.h"
#include "Views/Presets/GoalInputSheet.h"
#include "Views/Presets/PresetsView.h"
#include "Views/Shared/FadingScrollArea.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/KeyButton.h"
#include "Views/StartSession/ChoiceKeys.h"
#include "Views/StartSession/StartSessionView.h"
#include "Views/Theme/Feedback.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class FocusViewTest : public testing::Test {
protected:
    FocusViewTest() {
        view.show();
        QApplication::setActiveWindow(&view);
        desk.journal.take();
    }

    template<typename Widget>
    Widget& find() {
        return *view.findChild<Widget*>();
    }
    KeyButton& key(const QString& name) {
        for (KeyButton* key : view.findChildren<KeyButton*>())
            if (key->name() == name)
                return *key;
        throw std::runtime_error("no key " + name.toStdString());
    }
    QRect placeOf(const QWidget& control) {
        return {control.mapTo(&view, QPoint(0, 0)), control.size()};
    }
    void select(FocusTab tab) {
        view.findChildren<ModeButton*>().at(static_cast<int>(tab))->click();
        settle();
    }
    /// A session that has ended and a preset saved from it.
    void keepRecords() {
        FocusSession session;
        session.goal = u"Write"_s;
        session.duration = 60;
        manager.startSession(session);
        manager.stopSession();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        manager.savePreset(manager.sessionHistory().back());
    }
    InstrumentField& goal() { return find<InstrumentField>(); }
    void settle() { frames.advance(5); }

    FakeDesk desk;
    HandFrames frames;
    AnimationDriver driver{frames};
    Feedback feedback{desk.preferences, desk.haptics, desk.sound};
    FocusManager manager{desk.environment()};
    CategoryStore categories{desk.preferences};
    NullInstalledApplications installed;
    NullIconThemeSettings theme;
    ApplicationIcons icons{{installed, desk.workspace, theme}};
    FocusView view{{.context = {driver, feedback},
                    .timers = desk.clock,
                    .focusManager = manager,
                    .categoryStore = categories,
                    .installed = installed,
                    .workspace = desk.workspace,
                    .icons = icons,
                    .ownName = u"Tolvar"_s}};
};

TEST_F(FocusViewTest, BeginsOnTheStartTab) {
    EXPECT_EQ(view.size(), QSize(400, 578));
    EXPECT_EQ(view.selectedTab(), FocusTab::start);
    EXPECT_TRUE(find<StartSessionView>().isVisible());
    EXPECT_FALSE(view.findChild<ActiveSessionView*>());
}

TEST_F(FocusViewTest, StartsWhatWasChosen) {
    goal().setText(u"  Write report "_s);
    key(u"45m"_s).click();
    key(u"Gaming"_s).click();
    key(u"Start focus session"_s).click();
    const FocusSession* session = manager.activeSession();
    ASSERT_TRUE(session);
    EXPECT_EQ(session->goal, u"Write report");
    EXPECT_EQ(session->duration, 2700);
    ASSERT_EQ(session->blockCategories.size(), 1u);
    EXPECT_EQ(session->blockCategories.front().id, u"Gaming");
    settle();
    EXPECT_TRUE(find<ActiveSessionView>().isVisible());
    EXPECT_FALSE(find<StartSessionView>().isVisible());
}

TEST_F(FocusViewTest, StartsByReturnInTheGoalsField) {
    goal().setText(u"Write"_s);
    QTest::keyClick(&goal(), Qt::Key_Return);
    EXPECT_TRUE(manager.activeSession());
}

TEST_F(FocusViewTest, ShakesItsHeadAtAMissingGoalAndAsksForIt) {
    goal().setText(u" \t "_s);
    key(u"1h"_s).setFocus();
    const int home = goal().x();
    key(u"Start focus session"_s).click();
    EXPECT_FALSE(manager.activeSession());
    EXPECT_EQ(view.focusWidget(), &goal());
    frames.advance(0.06);
    EXPECT_EQ(goal().x(), home - 8);
    settle();
    EXPECT_EQ(goal().x(), home);
}

TEST_F(FocusViewTest, TapsForAChoiceAndNotForOneThatIsMadeAlready) {
    key(u"5m"_s).click();
    EXPECT_THAT(desk.journal.take(), testing::Contains(u"haptic alignment"_s));
    key(u"5m"_s).click();
    EXPECT_THAT(desk.journal.take(), testing::Not(testing::Contains(u"haptic alignment"_s)));
    key(u"Gaming"_s).click();
    EXPECT_THAT(desk.journal.take(), testing::Contains(u"haptic alignment"_s));
    key(u"Gaming"_s).click();
    EXPECT_THAT(desk.journal.take(), testing::Contains(u"haptic alignment"_s));
}

TEST_F(FocusViewTest, LatchesTheChosenLengthAndTheChosenCategories) {
    EXPECT_TRUE(key(u"25m"_s).isLatched());
    key(u"2h"_s).click();
    EXPECT_FALSE(key(u"25m"_s).isLatched());
    EXPECT_TRUE(key(u"2h"_s).isLatched());
    key(u"Gaming"_s).click();
    EXPECT_TRUE(key(u"Gaming"_s).isLatched());
}

TEST_F(FocusViewTest, KeepsWhatWasChosenForTheNextSession) {
    goal().setText(u"Write"_s);
    key(u"45m"_s).click();
    key(u"Start focus session"_s).click();
    manager.stopSession();
    settle();
    EXPECT_TRUE(find<StartSessionView>().isVisible());
    EXPECT_EQ(goal().text(), u"Write");
    EXPECT_TRUE(key(u"45m"_s).isLatched());
    EXPECT_EQ(view.focusWidget(), &goal());
}

TEST_F(FocusViewTest, FollowsTheCategoriesOfTheStore) {
    const BlockCategory added = categories.addCategory();
    EXPECT_NO_THROW(key(u"Untitled category"_s));
    key(u"Untitled category"_s).click();
    categories.rename(added.id, u"Chess"_s);
    EXPECT_TRUE(key(u"Chess"_s).isLatched());
    categories.deleteCategory(added.id);
    EXPECT_THROW(key(u"Chess"_s), std::runtime_error);
    goal().setText(u"Write"_s);
    key(u"Start focus session"_s).click();
    EXPECT_TRUE(manager.activeSession()->blockCategories.empty());
}

TEST_F(FocusViewTest, ReturnsToTheTabThatWasSelected) {
    auto& selector = find<ModeSelector>();
    QTest::keyClick(&selector, Qt::Key_Right);
    EXPECT_EQ(view.selectedTab(), FocusTab::presets);
    FocusSession session;
    session.goal = u"Write"_s;
    session.duration = 60;
    manager.startSession(session);
    manager.stopSession();
    EXPECT_EQ(view.selectedTab(), FocusTab::presets);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(view.findChild<ActiveSessionView*>());
}

TEST_F(FocusViewTest, ShowsASessionThatBeginsWhereOneHasJustEnded) {
    FocusSession session;
    session.goal = u"Write"_s;
    session.duration = 60;
    manager.startSession(session);
    manager.stopSession();
    session.id = QUuid::createUuid();
    manager.startSession(session);
    settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(find<ActiveSessionView>().isVisible());
    EXPECT_FALSE(find<StartSessionView>().isVisible());
}

TEST_F(FocusViewTest, PutsThePickerAwayWhenASessionBegins) {
    key(u"Block specific apps"_s).click();
    FocusSession session;
    session.duration = 60;
    manager.startSession(session);
    EXPECT_FALSE(find<AppPickerSheet>().isUp());
}

TEST_F(FocusViewTest, SurvivesTheReleaseOfTheKeyThatStoppedTheSession) {
    goal().setText(u"Write"_s);
    key(u"Start focus session"_s).click();
    settle();
    for (KeyButton* stop : find<ActiveSessionView>().findChildren<KeyButton*>())
        if (stop->name() == u"Stop")
            QTest::mouseClick(stop, Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(manager.activeSession());
    EXPECT_TRUE(find<StartSessionView>().isVisible());
}

TEST_F(FocusViewTest, TakesAStoredSessionThatIsNotActiveForNone) {
    FocusSession session;
    session.duration = 60;
    desk.preferences.setData(u"currentSession"_s, RecordCoding::encode(session).value());
    FocusManager other(desk.environment());
    ASSERT_TRUE(other.currentSession());
    EXPECT_EQ(other.status(), SessionStatus::ready);
    EXPECT_FALSE(other.activeSession());
}

TEST_F(FocusViewTest, ShowsTheSessionThatRunsAlready) {
    FocusSession session;
    session.goal = u"Write"_s;
    session.duration = 60;
    manager.startSession(session);
    FocusView other({.context = {driver, feedback},
                     .timers = desk.clock,
                     .focusManager = manager,
                     .categoryStore = categories,
                     .installed = installed,
                     .workspace = desk.workspace,
                     .icons = icons,
                     .ownName = u"Tolvar"_s});
    EXPECT_TRUE(other.findChild<ActiveSessionView*>());
}

TEST_F(FocusViewTest, TakesTheApplicationsThatArePicked) {
    key(u"Block specific apps"_s).click();
    auto& picker = find<AppPickerSheet>();
    EXPECT_TRUE(picker.isUp());
    Q_EMIT picker.selectionChanged({u"Chess"_s, u"Slack"_s});
    EXPECT_NO_THROW(key(u"Blocking Chess, Slack"_s));
    goal().setText(u"Write"_s);
    find<StartSessionView>().start();
    EXPECT_EQ(manager.activeSession()->blockedApps, (std::vector<QString>{u"Chess"_s, u"Slack"_s}));
}

TEST_F(FocusViewTest, KeepsEveryKeyInReachOnALowScreen) {
    view.resize(view.width(), 320);
    settle();
    EXPECT_TRUE(view.rect().contains(placeOf(key(u"Start focus session"_s))));
    goal().setText(u"Write report"_s);
    key(u"Start focus session"_s).click();
    settle();
    auto& keys = find<ActiveSessionView>();
    keys.takeKeyboard(Qt::TabFocusReason);
    for (int press = 0; press < 2; ++press)
        QTest::keyClick(view.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(view.focusWidget(), &key(u"Stop"_s));
    EXPECT_TRUE(view.rect().contains(placeOf(*view.focusWidget())));
}

TEST_F(FocusViewTest, MovesTheKeysOfASessionUpToTheDialBeforeItScrolls) {
    goal().setText(u"Write report"_s);
    key(u"Start focus session"_s).click();
    view.resize(view.width(), 500);
    settle();
    EXPECT_TRUE(view.rect().contains(placeOf(key(u"Stop"_s))));
}

TEST_F(FocusViewTest, BringsAControlThatTheKeyboardComesToClearOfTheEdge) {
    auto& page = find<FadingScrollArea>();
    key(u"News"_s).setFocus(Qt::TabFocusReason);
    QTest::keyClick(view.focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(view.focusWidget(), &key(u"Entertainment"_s));
    const QRect place(view.focusWidget()->mapTo(&page, QPoint(0, 0)), view.focusWidget()->size());
    EXPECT_LE(place.bottom() + 1, page.height() - 20);
}

TEST_F(FocusViewTest, ShowsPresetsAndHistoryInTheirTabs) {
    keepRecords();
    select(FocusTab::presets);
    EXPECT_TRUE(find<PresetsView>().isVisible());
    EXPECT_EQ(find<PresetsView>().findChild<CardList*>()->ids().size(), 1u);
    select(FocusTab::history);
    EXPECT_FALSE(find<PresetsView>().isVisible());
    EXPECT_EQ(find<HistoryView>().findChild<CardList*>()->rowRect(0).top(), 22);
}

TEST_F(FocusViewTest, ShowsTheSessionThatAPresetBegins) {
    keepRecords();
    select(FocusTab::presets);
    key(u"Start"_s).click();
    auto& sheet = find<GoalInputSheet>();
    ASSERT_TRUE(sheet.isUp());
    sheet.findChild<InstrumentField*>()->setText(u"Again"_s);
    key(u"Start focus"_s).click();
    settle();
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_TRUE(find<ActiveSessionView>().isVisible());
    EXPECT_EQ(manager.activeSession()->goal, u"Again");
}

TEST_F(FocusViewTest, TakesBackWhatItAskedWhenASessionBeginsElsewhere) {
    keepRecords();
    select(FocusTab::presets);
    key(u"Start"_s).click();
    manager.startSession(manager.sessionHistory().back().restarted(u"Elsewhere"_s));
    EXPECT_FALSE(find<GoalInputSheet>().isUp());
}

TEST_F(FocusViewTest, TakesBackWhatItAskedWhenTheWindowCloses) {
    keepRecords();
    select(FocusTab::presets);
    key(u"Start"_s).click();
    view.hide();
    EXPECT_FALSE(find<GoalInputSheet>().isUp());
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(FocusViewTest, PutsTheKeyboardOnACardWhereCardsAreShown) {
    keepRecords();
    select(FocusTab::history);
    view.takeKeyboard(Qt::OtherFocusReason);
    EXPECT_EQ(view.focusWidget(), find<HistoryView>().findChild<CardList*>()->containerOf(0));
}

TEST_F(FocusViewTest, ClosesAnOpenRowByEscapeWhereverTheKeyboardIs) {
    keepRecords();
    select(FocusTab::history);
    auto& list = *find<HistoryView>().findChild<CardList*>();
    list.setOpenId(list.ids().front());
    QWidget& tab = *view.findChildren<ModeButton*>().at(static_cast<int>(FocusTab::history));
    const auto escapes = [&] {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&tab, &escape);
        return escape.isAccepted();
    };
    EXPECT_TRUE(escapes());
    EXPECT_FALSE(list.openId());
    EXPECT_FALSE(escapes()) << "the next one is the window's";
}

TEST_F(FocusViewTest, RestsWhenNothingHappens) {
    settle();
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(FocusViewTest, LeadsTheTabKeyThroughTheScreenInItsOrder) {
    goal().setFocus(Qt::TabFocusReason);
    QStringList names;
    for (int step = 0; step < 15; ++step) {
        QTest::keyClick(view.focusWidget(), Qt::Key_Tab);
        auto* face = QAccessible::queryAccessibleInterface(view.focusWidget());
        names << face->text(QAccessible::Name);
    }
    QStringList wanted{u"5m"_s, u"15m"_s, u"25m"_s, u"45m"_s, u"1h"_s, u"2h"_s};
    for (const BlockCategory& category : categories.categories())
        wanted << category.name;
    wanted << u"Block specific apps"_s << u"Start focus session"_s << u"Start"_s;
    EXPECT_EQ(names, wanted);
}

} // namespace
} // namespace tolvar::test
