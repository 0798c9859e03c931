#include "Views/StatusPill/PillPlacement.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using Side = PillPlacement::Side;
using Edge = PillPlacement::Edge;

constexpr QSize size(60, 32);
const PillPlacement::Screen left{u"A"_s, QRect(0, 24, 1280, 776)};
const PillPlacement::Screen right{u"B b"_s, QRect(1280, 0, 1920, 1080)};

TEST(PillPlacement, IsTheBottomRightCornerOfTheFirstScreenToBeginWith) {
    EXPECT_EQ(PillPlacement().rectFor(size, {left, right}), QRect(1204, 752, 60, 32));
}

TEST(PillPlacement, RemembersTheNearestCorner) {
    const QRect rect(1300, 1000, 60, 32);
    const PillPlacement placement = PillPlacement::of(rect, {left, right});
    EXPECT_EQ(placement, (PillPlacement{Side::left, Edge::bottom, {20, 48}, u"B b"_s}));
    EXPECT_EQ(placement.rectFor(size, {left, right}), rect);
}

TEST(PillPlacement, GrowsAwayFromItsCorner) {
    const PillPlacement placement = PillPlacement::of({1200, 30, 60, 32}, {left});
    EXPECT_EQ(placement.side, Side::right);
    EXPECT_EQ(placement.rectFor({100, 32}, {left}), QRect(1160, 30, 100, 32));
}

TEST(PillPlacement, StaysInItsCornerWhenTheScreenChanges) {
    const PillPlacement::Screen larger{u"A"_s, QRect(0, 0, 2560, 1440)};
    EXPECT_EQ(PillPlacement().rectFor(size, {larger}), QRect(2484, 1392, 60, 32));
}

TEST(PillPlacement, MovesToTheFirstScreenWhenItsOwnIsGone) {
    const PillPlacement placement = PillPlacement::of({3000, 500, 60, 32}, {left, right});
    EXPECT_TRUE(left.available.contains(placement.rectFor(size, {left})));
}

TEST(PillPlacement, IsWhollyOnItsScreen) {
    const PillPlacement beyond{Side::left, Edge::top, {5000, -300}, u"A"_s};
    EXPECT_EQ(beyond.rectFor(size, {left}), QRect(1220, 24, 60, 32));
    const PillPlacement::Screen tiny{u"A"_s, QRect(10, 10, 20, 20)};
    EXPECT_EQ(beyond.rectFor(size, {tiny}).topLeft(), QPoint(10, 10));
}

TEST(PillPlacement, IsOfTheNearestScreenWhereItLiesOutsideOfAll) {
    EXPECT_EQ(PillPlacement::of({-500, 300, 60, 32}, {right, left}).screen, u"A"_s);
}

TEST(PillPlacement, ComesBackFromItsText) {
    const PillPlacement placement{Side::left, Edge::top, {20, 48}, u"B b"_s};
    EXPECT_EQ(placement.text(), u"left top 20 48 B b"_s);
    EXPECT_EQ(PillPlacement::fromText(placement.text()), placement);
    EXPECT_EQ(PillPlacement::fromText(PillPlacement().text()), PillPlacement());
}

TEST(PillPlacement, DoesNotComeFromOtherTexts) {
    for (const QString& text : {u""_s, u"left"_s, u"left top 1 2"_s, u"up top 1 2 A"_s,
                                u"left left 1 2 A"_s, u"left top x 2 A"_s, u"left top 1 y A"_s})
        EXPECT_FALSE(PillPlacement::fromText(text)) << text.toStdString();
}

} // namespace
} // namespace tolvar
