#include "Views/FocusWindow/SlotGeometry.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

constexpr SlotGeometry places{.totalWidth = 360, .count = 3};

TEST(SlotGeometry, SharesTheWidthWithoutInsetsAndSpacings) {
    EXPECT_DOUBLE_EQ(places.slotWidth(), 344 / 3.0);
    EXPECT_EQ(places.slot(0, 48), QRectF(4, 4, 344 / 3.0, 40));
    EXPECT_DOUBLE_EQ(places.slot(2, 48).right(), 356);
}

TEST(SlotGeometry, HasTheHighlightCoverTheSlotItRestsIn) {
    for (int index = 0; index < 3; ++index) {
        const QRectF slot = places.slot(index, 48);
        const QRectF highlight = places.highlight(index, index, 48);
        EXPECT_NEAR(highlight.left(), slot.left(), 1e-9);
        EXPECT_NEAR(highlight.right(), slot.right(), 1e-9);
    }
}

TEST(SlotGeometry, StretchesTheHighlightBetweenItsEdges) {
    const QRectF highlight = places.highlight(0, 2, 48);
    EXPECT_DOUBLE_EQ(highlight.left(), 4);
    EXPECT_DOUBLE_EQ(highlight.right(), 356);
}

TEST(SlotGeometry, KeepsAnEdgeThatOvershootsWithinTheInset) {
    EXPECT_DOUBLE_EQ(places.leadingPadding(-0.2), 4);
    EXPECT_DOUBLE_EQ(places.trailingPadding(2.2), 4);
}

TEST(SlotGeometry, LeavesNoWidthToEdgesThatPassEachOther) {
    EXPECT_EQ(places.highlight(2, 0, 48).width(), 0);
}

} // namespace
} // namespace tolvar::test
