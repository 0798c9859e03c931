#include "Views/FocusWindow/ModeSelector.h"

#include "Views/FocusWindow/ModeButton.h"
#include "Views/Shared/ControlTest.h"

#include <QSignalSpy>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class ModeSelectorTest : public ControlTest {
protected:
    ModeSelectorTest() { selector.resize(360, 48); }

    ModeButton& button(FocusTab tab) {
        return *selector.findChildren<ModeButton*>().at(static_cast<int>(tab));
    }

    ModeSelector& selector = shown(new ModeSelector(context(), FocusTab::start));
    QSignalSpy selections{&selector, &ModeSelector::selected};
};

TEST_F(ModeSelectorTest, SelectsATabByAClickWithItsFeedback) {
    button(FocusTab::history).click();
    EXPECT_EQ(selector.selection(), FocusTab::history);
    EXPECT_EQ(selections.count(), 1);
    EXPECT_EQ(journal.lines(), texts({u"haptic levelChange", u"play modeSwitch"}));
}

TEST_F(ModeSelectorTest, TakesNoNoticeOfAClickOnTheSelectedTab) {
    button(FocusTab::start).click();
    EXPECT_EQ(selections.count(), 0);
    EXPECT_TRUE(journal.lines().empty());
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(ModeSelectorTest, IsMovedByTheProgramWithoutFeedback) {
    selector.setSelection(FocusTab::presets);
    EXPECT_EQ(selector.selection(), FocusTab::presets);
    EXPECT_EQ(selections.count(), 0);
    EXPECT_TRUE(journal.lines().empty());
}

TEST_F(ModeSelectorTest, ComesToRestWhereTheTabIs) {
    button(FocusTab::history).click();
    EXPECT_TRUE(driver.isAwake());
    settle();
    EXPECT_FALSE(driver.isAwake());
    const QImage flown = picture(selector);
    ModeSelector placed(context(), FocusTab::history);
    placed.resize(selector.size());
    EXPECT_EQ(flown, picture(placed));
}

TEST_F(ModeSelectorTest, GlidesWithoutStretchUnderReducedMotion) {
    driver.setSettings({.isReduced = true});
    button(FocusTab::history).click();
    frames.advance(0.1);
    EXPECT_TRUE(driver.isAwake()) << "it moves, though calmly";
    frames.advance(0.15);
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(ModeSelectorTest, FollowsTheArrowKeys) {
    button(FocusTab::start).setFocus(Qt::TabFocusReason);
    key(selector, QEvent::KeyPress, Qt::Key_Right);
    EXPECT_EQ(selector.selection(), FocusTab::presets);
    key(selector, QEvent::KeyPress, Qt::Key_Right);
    key(selector, QEvent::KeyPress, Qt::Key_Right);
    EXPECT_EQ(selector.selection(), FocusTab::history);
    key(selector, QEvent::KeyPress, Qt::Key_Left);
    EXPECT_EQ(selector.selection(), FocusTab::presets);
    EXPECT_EQ(selections.count(), 3);
}

TEST_F(ModeSelectorTest, RunsFromRightToLeftWhereTextDoes) {
    selector.setLayoutDirection(Qt::RightToLeft);
    selector.resize(361, 48);
    EXPECT_GT(button(FocusTab::start).x(), button(FocusTab::history).x());
    key(selector, QEvent::KeyPress, Qt::Key_Left);
    EXPECT_EQ(selector.selection(), FocusTab::presets);
}

TEST_F(ModeSelectorTest, IsOneStopOfTheTabKey) {
    EXPECT_EQ(button(FocusTab::start).focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(button(FocusTab::presets).focusPolicy(), Qt::NoFocus);
    button(FocusTab::presets).click();
    EXPECT_EQ(button(FocusTab::start).focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(button(FocusTab::presets).focusPolicy(), Qt::TabFocus);
}

TEST_F(ModeSelectorTest, TellsAScreenReaderItsTabs) {
    EXPECT_EQ(accessible(selector)->role(), QAccessible::PageTabList);
    const char16_t* const names[] = {u"Start", u"Presets", u"History"};
    for (const FocusTab tab : allFocusTabs) {
        auto* face = accessible(button(tab));
        EXPECT_EQ(face->role(), QAccessible::PageTab);
        EXPECT_EQ(face->text(QAccessible::Name), QString::fromUtf16(names[static_cast<int>(tab)]));
        EXPECT_EQ(button(tab).toolTip(), QString::fromUtf16(names[static_cast<int>(tab)]));
        EXPECT_EQ(face->state().selected, tab == FocusTab::start);
    }
    accessible(button(FocusTab::history))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(selector.selection(), FocusTab::history);
}

} // namespace
} // namespace tolvar::test
