#include "Views/AppPicker/AppPickerList.h"

#include "Platform/Null/NullIconThemeSettings.h"
#include "Platform/Null/NullWorkspace.h"
#include "Support/FakeInstalledApplications.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Shared/ControlTest.h"

#include <QScrollBar>
#include <QSignalSpy>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using Row = AppPickerModel::Row;

std::vector<Row> manyRows() {
    std::vector<Row> rows{{Row::Kind::heading, u"Selected"_s}, {Row::Kind::app, u"App 0"_s}};
    rows.push_back({Row::Kind::heading, u"Other apps"_s});
    for (int i = 1; i <= 500; ++i)
        rows.push_back({Row::Kind::app, u"App %1"_s.arg(i)});
    return rows;
}

class AppPickerListTest : public ControlTest {
protected:
    AppPickerListTest() {
        list.setParent(&window);
        list.resize(300, 180);
        window.show();
        list.show();
        QApplication::setActiveWindow(&window);
        list.setRows(manyRows(), {});
        list.setFocus(Qt::TabFocusReason);
    }

    QWidget& viewport() { return *list.viewport(); }
    QPointF middleOf(int row) { return QRectF(list.rowRect(row)).center(); }
    void click(int row) {
        send(viewport(), QEvent::MouseButtonPress, middleOf(row));
        send(viewport(), QEvent::MouseButtonRelease, middleOf(row));
    }
    void press(Qt::Key which) { key(list, QEvent::KeyPress, which); }
    bool isInView(int row) { return viewport().rect().contains(list.rowRect(row)); }
    QAccessibleInterface* face(int row) { return accessible(list)->child(row); }

    FakeInstalledApplications installed;
    NullWorkspace workspace;
    NullIconThemeSettings theme;
    ApplicationIcons icons{{installed, workspace, theme}};
    AppPickerList list{context(), icons};
    QSignalSpy toggled{&list, &AppPickerList::toggled};
};

TEST_F(AppPickerListTest, KnowsWhichRowIsWhere) {
    EXPECT_EQ(list.rowAt(middleOf(0).toPoint()), 0);
    EXPECT_EQ(list.rowAt(list.rowRect(1).topLeft()), 1);
    EXPECT_EQ(list.rowAt(list.rowRect(1).bottomLeft()), 1);
    EXPECT_EQ(list.rowAt({5, 1}), -1);
    EXPECT_EQ(list.rowAt({5, -20}), -1);
    list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum());
    EXPECT_EQ(list.rowAt(list.rowRect(502).center()), 502);
    EXPECT_EQ(list.rowAt({5, 179}), -1);
    EXPECT_TRUE(list.rowRect(503).isNull());
}

TEST_F(AppPickerListTest, TogglesARowThatIsClicked) {
    click(1);
    ASSERT_EQ(toggled.count(), 1);
    EXPECT_EQ(toggled.front().front().toString(), u"App 0");
    click(0);
    EXPECT_EQ(toggled.count(), 1);
}

TEST_F(AppPickerListTest, TogglesNothingWhenThePointerLeavesTheRow) {
    send(viewport(), QEvent::MouseButtonPress, middleOf(1));
    send(viewport(), QEvent::MouseButtonRelease, middleOf(3));
    EXPECT_EQ(toggled.count(), 0);
}

TEST_F(AppPickerListTest, GoesFromRowToRowPastHeadings) {
    EXPECT_EQ(list.currentRow(), 1);
    press(Qt::Key_Down);
    EXPECT_EQ(list.currentRow(), 3);
    press(Qt::Key_Up);
    EXPECT_EQ(list.currentRow(), 1);
    press(Qt::Key_End);
    EXPECT_EQ(list.currentRow(), 502);
    EXPECT_TRUE(isInView(502));
    press(Qt::Key_Down);
    EXPECT_EQ(list.currentRow(), 502);
    press(Qt::Key_Home);
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_TRUE(isInView(0));
    press(Qt::Key_PageDown);
    EXPECT_EQ(list.currentRow(), 5);
    EXPECT_TRUE(isInView(5));
    press(Qt::Key_PageUp);
    EXPECT_EQ(list.currentRow(), 1);
}

TEST_F(AppPickerListTest, LeavesUpwardsFromTheFirstRow) {
    QSignalSpy left(&list, &AppPickerList::leftAtTop);
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    EXPECT_EQ(left.count(), 0);
    press(Qt::Key_Up);
    EXPECT_EQ(left.count(), 1);
    EXPECT_EQ(list.currentRow(), 1);
}

TEST_F(AppPickerListTest, TogglesWithSpaceButNotWhileItIsHeld) {
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    ASSERT_EQ(toggled.count(), 1);
    EXPECT_EQ(toggled.front().front().toString(), u"App 1");
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, u" "_s, true);
    QApplication::sendEvent(&list, &held);
    EXPECT_EQ(toggled.count(), 1);
}

TEST_F(AppPickerListTest, LeavesOtherKeysToOthers) {
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s);
    static_cast<QObject&>(list).event(&letter);
    EXPECT_FALSE(letter.isAccepted());
    QKeyEvent done(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    static_cast<QObject&>(list).event(&done);
    EXPECT_FALSE(done.isAccepted());
}

TEST_F(AppPickerListTest, LetsACheckMarkSpringAndRest) {
    const QImage before = picture(list);
    list.setSelectedApps({u"App 0"_s});
    EXPECT_TRUE(frames.isRunning());
    frames.advance(0.05);
    const QImage between = picture(list);
    settle();
    EXPECT_FALSE(frames.isRunning());
    const QImage after = picture(list);
    EXPECT_NE(between, before);
    EXPECT_NE(between, after);
    EXPECT_TRUE(list.isSelected(1));
    list.setSelectedApps({});
    settle();
    EXPECT_EQ(picture(list), before);
}

TEST_F(AppPickerListTest, MovesNothingThatIsOutOfView) {
    list.setSelectedApps({u"App 400"_s});
    EXPECT_FALSE(frames.isRunning());
    list.hide();
    list.setSelectedApps({u"App 1"_s});
    EXPECT_FALSE(frames.isRunning());
    EXPECT_TRUE(list.isSelected(3));
}

TEST_F(AppPickerListTest, TurnsACheckMarkBackInMidFlight) {
    list.setSelectedApps({u"App 0"_s});
    frames.advance(0.05);
    list.setSelectedApps({});
    settle();
    EXPECT_FALSE(list.isSelected(1));
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(AppPickerListTest, IsAListOfCheckableItemsBelowHeadings) {
    auto* whole = accessible(list);
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->role(), QAccessible::List);
    ASSERT_EQ(whole->childCount(), 503);
    EXPECT_EQ(face(0)->role(), QAccessible::Heading);
    EXPECT_EQ(face(0)->text(QAccessible::Name), u"Selected");
    EXPECT_EQ(face(1)->role(), QAccessible::ListItem);
    EXPECT_EQ(face(1)->text(QAccessible::Name), u"App 0");
    EXPECT_TRUE(face(1)->state().checkable);
    EXPECT_FALSE(face(1)->state().checked);
    EXPECT_FALSE(face(0)->state().checkable);
    list.setSelectedApps({u"App 0"_s});
    EXPECT_TRUE(face(1)->state().checked);
    EXPECT_TRUE(face(1)->state().focused);
    EXPECT_EQ(whole->focusChild(), face(1));
    EXPECT_FALSE(face(1)->state().offscreen);
    EXPECT_TRUE(face(400)->state().offscreen);
    EXPECT_EQ(whole->indexOfChild(face(7)), 7);
    EXPECT_EQ(face(7)->parent(), whole);
    const QPoint place = face(3)->rect().center();
    EXPECT_EQ(whole->childAt(place.x(), place.y()), face(3));
}

TEST_F(AppPickerListTest, LetsAssistiveTechnologyToggleAnItem) {
    auto* action = face(3)->actionInterface();
    ASSERT_TRUE(action);
    action->doAction(QAccessibleActionInterface::toggleAction());
    ASSERT_EQ(toggled.count(), 1);
    EXPECT_EQ(toggled.front().front().toString(), u"App 1");
    EXPECT_EQ(face(0)->actionInterface(), nullptr);
}

TEST_F(AppPickerListTest, LetsAssistiveTechnologyGoToAnItemOutOfView) {
    face(400)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(list.currentRow(), 400);
    EXPECT_TRUE(isInView(400));
}

TEST_F(AppPickerListTest, ForgetsItemsThatAreGone) {
    auto* whole = accessible(list);
    face(400);
    list.setRows({{Row::Kind::app, u"Only"_s}}, {});
    EXPECT_EQ(whole->childCount(), 1);
    EXPECT_EQ(whole->child(400), nullptr);
    EXPECT_EQ(face(0)->text(QAccessible::Name), u"Only");
}

TEST_F(AppPickerListTest, SaysWhyItIsEmpty) {
    list.setRows({}, u"No apps match “x”"_s);
    EXPECT_EQ(list.currentRow(), -1);
    EXPECT_EQ(accessible(list)->text(QAccessible::Description), u"No apps match “x”");
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_EQ(toggled.count(), 0);
}

TEST_F(AppPickerListTest, BeginsAtTheTopWhenItsRowsChange) {
    press(Qt::Key_End);
    list.setRows(manyRows(), {});
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
    EXPECT_EQ(list.currentRow(), 1);
}

TEST_F(AppPickerListTest, ShowsWhereTheKeyboardIsOnlyToThoseWhoUseIt) {
    press(Qt::Key_Home);
    const QImage withKeyboard = picture(list);
    send(viewport(), QEvent::MouseButtonPress, middleOf(1));
    EXPECT_NE(picture(list), withKeyboard);
}

} // namespace
} // namespace tolvar::test
