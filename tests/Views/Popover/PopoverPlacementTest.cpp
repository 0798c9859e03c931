#include "Views/Popover/PopoverPlacement.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

constexpr QSize size{400, 578};
constexpr int gap = 4;
/// A screen whose panel takes 30 points at the top.
constexpr QRect belowPanel{0, 30, 1280, 770};

TEST(PopoverPlacement, HangsCentredBelowAnItemInAPanelAtTheTop) {
    const QRect anchor(600, 5, 20, 20);
    const QRect place = placePopover(anchor, size, belowPanel, gap);
    EXPECT_EQ(place, QRect(QPoint(410, 34), size));
}

TEST(PopoverPlacement, StandsOnAnItemInAPanelAtTheBottom) {
    const QRect available(0, 0, 1280, 770);
    const QRect place = placePopover({600, 775, 20, 20}, size, available, gap);
    EXPECT_EQ(place.bottom() + 1, available.bottom() + 1 - gap);
    EXPECT_EQ(place.left(), 410);
}

TEST(PopoverPlacement, StaysOnTheScreenBesideAnItemAtItsEdge) {
    EXPECT_EQ(placePopover({1260, 5, 20, 20}, size, belowPanel, gap).right() + 1, 1280 - gap);
    EXPECT_EQ(placePopover({0, 5, 20, 20}, size, belowPanel, gap).left(), gap);
}

TEST(PopoverPlacement, StaysOnASecondScreen) {
    const QRect second(1280, 0, 1280, 800);
    const QRect place = placePopover({1285, 2, 20, 20}, size, second, gap);
    EXPECT_TRUE(second.contains(place));
    EXPECT_EQ(place.left(), 1280 + gap);
}

TEST(PopoverPlacement, HangsBesideAPanelAtTheSide) {
    const QRect available(40, 0, 1240, 800);
    const QRect place = placePopover({8, 100, 24, 24}, size, available, gap);
    EXPECT_EQ(place.left(), 40 + gap);
    EXPECT_EQ(place.top(), 124 + gap);
}

TEST(PopoverPlacement, ShowsItsTopOnAScreenThatIsTooLow) {
    const QRect low(0, 24, 800, 400);
    EXPECT_EQ(placePopover({300, 2, 20, 20}, size, low, gap).top(), low.top() + gap);
    EXPECT_EQ(placePopover({300, 430, 20, 20}, size, low, gap).top(), low.top() + gap);
}

} // namespace
} // namespace tolvar::test
