#include "Views/Presets/GoalInputSheet.h"

#include "Views/Shared/ControlTest.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/KeyButton.h"

#include <QSignalSpy>
#include <QTest>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class GoalInputSheetTest : public ControlTest {
protected:
    GoalInputSheetTest() {
        window.resize(400, 578);
        window.show();
        QApplication::setActiveWindow(&window);
        behind.setFocus();
        sheet.ask(u"Deep work"_s, 90 * 60);
        settle();
    }

    KeyButton& keyNamed(const QString& name) {
        for (auto* key : sheet.findChildren<KeyButton*>())
            if (key->name() == name)
                return *key;
        throw std::runtime_error("no such key");
    }
    InstrumentField& goal() { return *sheet.findChild<InstrumentField*>(); }

    KeyButton& behind = shown(new KeyButton(context(), KeyStyle::standard(), u"Behind"_s));
    GoalInputSheet sheet{context(), window};
    QSignalSpy started{&sheet, &GoalInputSheet::started};
    QSignalSpy dismissed{&sheet, &Sheet::dismissed};
};

TEST_F(GoalInputSheetTest, AsksForAGoalWithTheKeyboardInItsField) {
    EXPECT_TRUE(sheet.isUp());
    EXPECT_EQ(window.focusWidget(), &goal());
    EXPECT_EQ(goal().placeholderText(), u"e.g. Write the blog post");
    EXPECT_EQ(accessible(sheet)->text(QAccessible::Name), u"Deep work");
    EXPECT_EQ(accessible(sheet)->text(QAccessible::Description), u"1h 30m");
    EXPECT_EQ(accessible(goal())->text(QAccessible::Name), u"What is your goal?");
}

TEST_F(GoalInputSheetTest, StandsOnACardOfItsWidth) {
    const int inside = goal().width() + 2 * Sheet::padding;
    EXPECT_EQ(inside, 340);
}

TEST_F(GoalInputSheetTest, StartsWithTheGoalAndNothingAroundIt) {
    goal().setText(u" \u00a0 Write the report\t "_s);
    keyNamed(u"Start focus"_s).click();
    ASSERT_EQ(started.count(), 1);
    EXPECT_EQ(started.front().front(), u"Write the report"_s);
    EXPECT_FALSE(sheet.isUp());
    EXPECT_EQ(window.focusWidget(), &behind);
}

TEST_F(GoalInputSheetTest, StartsByReturn) {
    QTest::keyClicks(&goal(), u"Write"_s);
    QTest::keyClick(&goal(), Qt::Key_Return);
    ASSERT_EQ(started.count(), 1);
    EXPECT_EQ(started.front().front(), u"Write"_s);
}

TEST_F(GoalInputSheetTest, CannotStartWithBlanksAlone) {
    KeyButton& start = keyNamed(u"Start focus"_s);
    EXPECT_FALSE(start.isEnabled());
    goal().setText(u" \t\u2003 "_s);
    EXPECT_FALSE(start.isEnabled());
    QTest::keyClick(&goal(), Qt::Key_Return);
    start.click();
    EXPECT_EQ(started.count(), 0);
    EXPECT_TRUE(sheet.isUp());
    goal().setText(u"x"_s);
    EXPECT_TRUE(start.isEnabled());
    goal().clear();
    EXPECT_FALSE(start.isEnabled());
}

TEST_F(GoalInputSheetTest, StartsNothingWhenItIsCancelled) {
    goal().setText(u"Write"_s);
    keyNamed(u"Cancel"_s).click();
    EXPECT_EQ(started.count(), 0);
    EXPECT_EQ(dismissed.count(), 1);
    EXPECT_FALSE(sheet.isUp());
}

TEST_F(GoalInputSheetTest, IsCancelledByEscapeInTheField) {
    goal().setText(u"Write"_s);
    QTest::keyClick(&goal(), Qt::Key_Escape);
    EXPECT_EQ(started.count(), 0);
    EXPECT_FALSE(sheet.isUp());
}

TEST_F(GoalInputSheetTest, StartsOnceHoweverOftenItsKeyIsPressed) {
    goal().setText(u"Write"_s);
    KeyButton& start = keyNamed(u"Start focus"_s);
    start.click();
    start.click();
    QTest::keyClick(&goal(), Qt::Key_Return);
    EXPECT_EQ(started.count(), 1);
}

TEST_F(GoalInputSheetTest, ForgetsTheGoalOfTheLastTime) {
    goal().setText(u"Write"_s);
    keyNamed(u"Cancel"_s).click();
    sheet.ask(u"Reading"_s, 60);
    EXPECT_EQ(goal().text(), u"");
    EXPECT_FALSE(keyNamed(u"Start focus"_s).isEnabled());
    EXPECT_EQ(accessible(sheet)->text(QAccessible::Name), u"Reading");
}

TEST_F(GoalInputSheetTest, IsInNobodysWayOnceItSinks) {
    keyNamed(u"Cancel"_s).click();
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_TRUE(sheet.testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(window.childAt(behind.geometry().center()), &behind);
    sheet.ask(u"Again"_s, 60);
    EXPECT_FALSE(sheet.testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST_F(GoalInputSheetTest, CutsATitleThatIsTooLong) {
    sheet.sink();
    sheet.ask(u"Everything that has to be done "_s.repeated(20), 60);
    settle();
    EXPECT_EQ(goal().width() + 2 * Sheet::padding, GoalInputSheet::fixedWidth);
}

} // namespace
} // namespace tolvar::test
