#include "Platform/Linux/X11/Struts.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using Words = std::vector<std::uint32_t>;

constexpr QRect first{0, 0, 1280, 800};
constexpr QRect second{1280, 0, 1920, 1080};
/// Both side by side.
constexpr QSize desktop{3200, 1080};

QRect free(const QRect& screen, const Words& strut) {
    return areaBetween({strut}, desktop, screen);
}

TEST(Struts, LeaveTheWholeScreenWhereNothingIsReserved) {
    EXPECT_EQ(areaBetween({}, desktop, first), first);
    EXPECT_EQ(free(first, {}), first);
    EXPECT_EQ(free(first, {0, 0, 0, 0}), first);
}

TEST(Struts, TakeAPanelFromTheScreenThatItIsOn) {
    const Words top{0, 0, 30, 0, 0, 0, 0, 0, 1280, 3199, 0, 0};
    EXPECT_EQ(free(second, top), second.adjusted(0, 30, 0, 0));
    EXPECT_EQ(free(first, top), first);
}

TEST(Struts, AreMeasuredFromTheEdgeOfTheWholeDesktop) {
    // A panel of 30 pixels at the bottom of the first screen, which is 280 less high than the
    // other.
    const Words bottom{0, 0, 0, 310, 0, 0, 0, 0, 0, 0, 0, 1279};
    EXPECT_EQ(free(first, bottom), first.adjusted(0, 0, 0, -30));
    EXPECT_EQ(free(second, bottom), second);
}

TEST(Struts, TakePanelsAtTheSides) {
    EXPECT_EQ(free(first, {40, 0, 0, 0, 0, 1079, 0, 0, 0, 0, 0, 0}), first.adjusted(40, 0, 0, 0));
    EXPECT_EQ(free(second, {0, 50, 0, 0, 0, 0, 0, 1079, 0, 0, 0, 0}),
              second.adjusted(0, 0, -50, 0));
}

TEST(Struts, RunAlongTheWholeEdgeWhereNoEndsAreNamed) {
    const Words plain{0, 0, 24, 0};
    EXPECT_EQ(free(first, plain), first.adjusted(0, 24, 0, 0));
    EXPECT_EQ(free(second, plain), second.adjusted(0, 24, 0, 0));
}

TEST(Struts, OfSeveralPanelsAllCount) {
    EXPECT_EQ(areaBetween({{0, 0, 24, 0}, {}, {0, 0, 30, 0}, {0, 0, 0, 310}}, desktop, first),
              first.adjusted(0, 30, 0, -30));
}

TEST(Struts, ReserveNoScreenThatLiesBetweenThePanelAndTheEdge) {
    // At the left edge of the second screen, so that all of the first lies in the strip.
    const Words inner{1320, 0, 0, 0, 0, 1079, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(free(first, inner), first);
    EXPECT_EQ(free(second, inner), second.adjusted(40, 0, 0, 0));
}

} // namespace
} // namespace tolvar::test
