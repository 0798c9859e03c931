#include "Views/StatusPill/StatusPill.h"

#include "Views/StatusPill/PillFixture.h"

#include <QAccessible>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

using StatusPillTest = PillFixture;

TEST_F(StatusPillTest, LiesInACornerOfTheScreen) {
    show(idle());
    EXPECT_TRUE(pill().isVisible());
    EXPECT_EQ(pill().geometry().bottomRight(), screen().bottomRight() - QPoint(16, 16));
    EXPECT_EQ(pill().size(), QSize(32, 32));
}

TEST_F(StatusPillTest, IsNotSeenBeforeItHasSomethingToShow) {
    EXPECT_FALSE(pill().isVisible());
}

TEST_F(StatusPillTest, GrowsToTheSideThatIsFree) {
    show(idle());
    const int right = pill().geometry().right();
    item->show(countdown());
    EXPECT_EQ(pill().width(), 64 + 8);
    EXPECT_EQ(pill().geometry().right(), right);
}

TEST_F(StatusPillTest, IsAButtonToAssistiveTechnology) {
    show(countdown());
    auto* face = QAccessible::queryAccessibleInterface(&pill());
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::Button);
    EXPECT_EQ(face->text(QAccessible::Name), u"Tolvar, 24:59 remaining"_s);
    ASSERT_TRUE(face->actionInterface());
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return told == QStringList(u"clicked"_s); }));
}

TEST_F(StatusPillTest, IsClickedByThePointer) {
    show(idle());
    QTest::mouseClick(&pill(), Qt::LeftButton);
    EXPECT_EQ(told, QStringList(u"clicked"_s));
}

TEST_F(StatusPillTest, StaysWhereItIsDraggedTo) {
    show(idle());
    drag({-300, -200});
    EXPECT_EQ(pill().geometry().bottomRight(), screen().bottomRight() - QPoint(316, 216));
    EXPECT_FALSE(told.contains(u"clicked"_s));
    EXPECT_TRUE(told.contains(u"moved"_s));
    EXPECT_TRUE(preferences.text(StatusPill::placeKey).startsWith(u"right bottom 316 216"_s));
    item = place.makeItem();
    item->show(idle());
    EXPECT_EQ(pill().geometry().bottomRight(), screen().bottomRight() - QPoint(316, 216));
}

TEST_F(StatusPillTest, ComesBackOntoTheScreenWhenItIsDraggedBeyond) {
    show(idle());
    drag({500, 0});
    EXPECT_EQ(pill().geometry().right(), screen().right());
}

TEST_F(StatusPillTest, IsClickedByAHandThatTrembles) {
    show(idle());
    const QRect before = pill().geometry();
    drag({2, 1});
    EXPECT_EQ(told, QStringList(u"clicked"_s));
    EXPECT_EQ(pill().geometry(), before);
}

TEST_F(StatusPillTest, KeepsItsPlaceInMemoryOnlyWhenDragged) {
    show(idle());
    item->show(countdown());
    EXPECT_FALSE(preferences.storedValue(StatusPill::placeKey));
}

TEST_F(StatusPillTest, SaysWhereTheCastleStands) {
    show(countdown());
    const QRect castle = *item->anchor();
    EXPECT_EQ(castle.size(), QSize(15, 16)); // on half a pixel across
    EXPECT_TRUE(pill().geometry().contains(castle));
    EXPECT_LT(castle.center().x(), pill().geometry().center().x());
}

TEST_F(StatusPillTest, StandsStillWhenNobodyTouchesIt) {
    show(countdown());
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(StatusPillTest, GlowsAmberWhileASessionGoesOn) {
    show(countdown());
    const auto castleColor = [this] {
        return pill().grab().toImage().pixelColor(4 + 4, StatusPill::height / 2);
    };
    const QColor alive = castleColor();
    EXPECT_GT(alive.red() - alive.blue(), 100);
    auto content = countdown();
    content.isSessionActive = false;
    item->show(content);
    EXPECT_LT(castleColor().red() - castleColor().blue(), 30);
}

} // namespace
} // namespace tolvar::test
