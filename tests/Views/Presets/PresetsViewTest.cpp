#include "Views/Presets/PresetsView.h"

#include "Models/CategoryStore.h"
#include "Platform/Null/NullIconThemeSettings.h"
#include "Platform/Null/NullInstalledApplications.h"
#include "Support/FakeDesk.h"
#include "Support/HandFrames.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Presets/GoalInputSheet.h"
#include "Views/Presets/PresetCard.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Labels.h"
#include "Views/Theme/Feedback.h"

#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class PresetsViewTest : public testing::Test {
protected:
    PresetsViewTest() {
        window.resize(400, 500);
        view.resize(400, 500);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    /// A preset of a session of its own.
    FocusPreset save(const QString& goal, const std::vector<BlockCategory>& chosen = {}) {
        FocusSession session;
        session.goal = goal;
        session.duration = 25 * 60;
        session.blockCategories = chosen;
        manager.savePreset(session);
        return manager.savedPresets().back();
    }

    CardList& list() { return *view.findChild<CardList*>(); }
    EmptyState& empty() { return *view.findChild<EmptyState*>(); }
    GoalInputSheet& goalSheet() { return *window.findChild<GoalInputSheet*>(); }
    ConfirmationSheet& question() { return *window.findChild<ConfirmationSheet*>(); }
    PresetCard& card(int row) {
        return static_cast<PresetCard&>(list().containerInView(row).content());
    }
    KeyButton& key(QWidget& parent, const QString& name) {
        for (KeyButton* key : parent.findChildren<KeyButton*>())
            if (key->name() == name)
                return *key;
        throw std::runtime_error("no key " + name.toStdString());
    }
    void start(int row) { key(card(row), u"Start"_s).click(); }
    QStringList names() {
        QStringList names;
        for (int row = 0; row < static_cast<int>(list().ids().size()); ++row)
            names << card(row).content().name;
        return names;
    }
    void give(const QString& goal) {
        goalSheet().findChild<InstrumentField*>()->setText(goal);
        key(goalSheet(), u"Start focus"_s).click();
    }
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
    QWidget window;
    PresetsView view{{.context = {driver, feedback},
                      .timers = desk.clock,
                      .focusManager = manager,
                      .window = window},
                     {.categoryStore = categories, .icons = icons},
                     &window};
};

TEST_F(PresetsViewTest, SaysThatThereAreNone) {
    EXPECT_TRUE(empty().isVisible());
    EXPECT_FALSE(list().isVisible());
    EXPECT_EQ(empty().accessibleName(), u"No presets yet");
    EXPECT_EQ(empty().accessibleDescription(),
              u"Save any past focus session as a preset from the History tab.");
}

TEST_F(PresetsViewTest, ShowsPresetsInTheOrderInWhichTheyAreStored) {
    save(u"Write"_s);
    save(u"Read"_s);
    EXPECT_FALSE(empty().isVisible());
    EXPECT_EQ(names(), (QStringList{u"Write"_s, u"Read"_s}));
    EXPECT_EQ(card(0).content().duration, u"25m");
}

TEST_F(PresetsViewTest, AsksForAGoalAndStartsWithIt) {
    save(u"Write"_s, {categories.categories().front()});
    start(0);
    EXPECT_TRUE(goalSheet().isUp());
    EXPECT_EQ(goalSheet().accessibleName(), u"Write");
    EXPECT_FALSE(manager.activeSession());
    give(u" Chapter two "_s);
    ASSERT_TRUE(manager.activeSession());
    EXPECT_EQ(manager.activeSession()->goal, u"Chapter two");
    EXPECT_EQ(manager.activeSession()->duration, 25 * 60);
    EXPECT_THAT(manager.activeSession()->blockCategories,
                ElementsAre(categories.categories().front()));
    EXPECT_FALSE(goalSheet().isUp());
}

TEST_F(PresetsViewTest, StartsWithTheCategoriesAsTheyAreThen) {
    save(u"Write"_s, {categories.categories().front()});
    start(0);
    categories.setApps({u"Chess"_s}, categories.categories().front().id);
    give(u"Chapter two"_s);
    EXPECT_THAT(manager.activeSession()->blockCategories.front().apps, ElementsAre(u"Chess"_s));
}

TEST_F(PresetsViewTest, StartsAPresetWhoseCategoriesAreGone) {
    save(u"Write"_s, {{u"gone"_s, u"Gone"_s, {u"Chess"_s}, {}}});
    EXPECT_TRUE(card(0).content().blocked.isEmpty());
    start(0);
    give(u"Chapter two"_s);
    ASSERT_TRUE(manager.activeSession());
    EXPECT_TRUE(manager.activeSession()->blockCategories.empty());
}

TEST_F(PresetsViewTest, ShowsWhatACategoryHoldsNow) {
    const QString id = categories.categories().front().id;
    save(u"Write"_s, {categories.categories().front()});
    categories.setApps({u"Chess"_s}, id);
    EXPECT_EQ(card(0).content().blocked.appNames, QStringList{u"Chess"_s});
}

TEST_F(PresetsViewTest, DeletesWithTheRevealedKey) {
    save(u"Write"_s);
    save(u"Read"_s);
    list().setOpenId(list().ids().front());
    settle();
    auto& row = list().containerInView(0);
    ASSERT_EQ(row.actions().size(), 1u);
    EXPECT_EQ(row.actions().front().title, u"Delete");
    EXPECT_TRUE(row.actions().front().isDestructive);
    key(row, u"Delete"_s).click();
    EXPECT_EQ(manager.savedPresets().size(), 1u);
    EXPECT_EQ(names(), QStringList{u"Read"_s});
}

TEST_F(PresetsViewTest, AsksBeforeTheDeleteKeyDeletes) {
    save(u"Write"_s);
    view.takeKeyboard(Qt::TabFocusReason);
    QTest::keyClick(window.focusWidget(), Qt::Key_Delete);
    ASSERT_TRUE(question().isUp());
    EXPECT_EQ(manager.savedPresets().size(), 1u);
    EXPECT_EQ(question().accessibleDescription(), u"This will permanently delete “Write”.");
    key(question(), u"Delete"_s).click();
    EXPECT_TRUE(manager.savedPresets().empty());
    settle();
    EXPECT_TRUE(empty().isVisible());
    EXPECT_FALSE(list().isVisible());
}

TEST_F(PresetsViewTest, TakesTheQuestionBackWhenSomebodyElseDeletesThePreset) {
    const FocusPreset preset = save(u"Write"_s);
    save(u"Read"_s);
    Q_EMIT list().deleteRequested(preset.id);
    ASSERT_TRUE(question().isUp());
    manager.deletePreset(preset);
    EXPECT_FALSE(question().isUp());
    EXPECT_EQ(names(), QStringList{u"Read"_s});
}

TEST_F(PresetsViewTest, StartsAPresetThatWasDeletedWhileItsGoalWasWritten) {
    const FocusPreset preset = save(u"Write"_s);
    start(0);
    manager.deletePreset(preset);
    EXPECT_TRUE(goalSheet().isUp());
    give(u"Chapter two"_s);
    ASSERT_TRUE(manager.activeSession());
    EXPECT_EQ(manager.activeSession()->duration, 25 * 60);
}

TEST_F(PresetsViewTest, AsksNothingOnceItIsHidden) {
    const FocusPreset preset = save(u"Write"_s);
    start(0);
    view.hide();
    EXPECT_FALSE(goalSheet().isUp());
    Q_EMIT list().deleteRequested(preset.id);
    EXPECT_FALSE(question().isUp());
}

TEST_F(PresetsViewTest, AsksNothingWhileASessionRuns) {
    const FocusPreset preset = save(u"Write"_s);
    manager.startSession({});
    start(0);
    Q_EMIT list().deleteRequested(preset.id);
    EXPECT_FALSE(goalSheet().isUp());
    EXPECT_FALSE(question().isUp());
}

TEST_F(PresetsViewTest, ReplacesNoSessionThatBeganMeanwhile) {
    save(u"Write"_s);
    start(0);
    FocusSession other;
    other.goal = u"Other"_s;
    other.duration = 60;
    manager.startSession(other);
    give(u"Chapter two"_s);
    EXPECT_EQ(manager.activeSession()->goal, u"Other");
}

TEST_F(PresetsViewTest, LetsTheEmptyStateComeWhenTheLastCardHasGone) {
    const FocusPreset preset = save(u"Write"_s);
    settle();
    manager.deletePreset(preset);
    EXPECT_TRUE(list().isVisible());
    settle();
    EXPECT_FALSE(list().isVisible());
    EXPECT_TRUE(empty().isVisible());
    save(u"Read"_s);
    EXPECT_TRUE(list().isVisible());
    EXPECT_FALSE(empty().isVisible());
    EXPECT_EQ(names(), QStringList{u"Read"_s});
}

TEST_F(PresetsViewTest, RestsWhenNothingHappens) {
    save(u"Write"_s);
    settle();
    EXPECT_FALSE(driver.isAwake());
}

} // namespace
} // namespace tolvar::test
