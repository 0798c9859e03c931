#include "Views/BlockAlert/ScreenPlacement.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

const std::vector<QRect> sideBySide{{0, 0, 1920, 1080}, {1920, 200, 1280, 1024}};

TEST(ScreenUnder, IsTheOneThatHoldsThePoint) {
    EXPECT_EQ(screenUnder({0, 0}, sideBySide), 0);
    EXPECT_EQ(screenUnder({1919, 1079}, sideBySide), 0);
    EXPECT_EQ(screenUnder({1920, 200}, sideBySide), 1);
}

TEST(ScreenUnder, IsNoneInTheGapBesideAScreen) {
    EXPECT_EQ(screenUnder({1920, 199}, sideBySide), -1);
    EXPECT_EQ(screenUnder({-1, 5}, sideBySide), -1);
    EXPECT_EQ(screenUnder({0, 0}, {}), -1);
}

TEST(ScreenUnder, IsTheFirstWhereTwoShowTheSame) {
    EXPECT_EQ(screenUnder({10, 10}, {{0, 0, 800, 600}, {0, 0, 1920, 1080}}), 0);
}

TEST(CenteredOrigin, PutsAWindowInTheMiddleOfTheWholeFrame) {
    EXPECT_EQ(centeredOrigin({0, 0, 1920, 1080}, {360, 240}), QPoint(780, 420));
    EXPECT_EQ(centeredOrigin({1920, 200, 1280, 1024}, {360, 240}), QPoint(2380, 592));
}

TEST(CenteredOrigin, RoundsHalfPointsAwayFromZero) {
    EXPECT_EQ(centeredOrigin({0, 0, 1921, 1081}, {360, 240}), QPoint(781, 421));
    EXPECT_EQ(centeredOrigin({0, 0, 1920, 1080}, {361, 241}), QPoint(780, 420));
}

TEST(CenteredOrigin, LetsAWindowStickOutOfAScreenThatIsTooSmall) {
    EXPECT_EQ(centeredOrigin({0, 0, 320, 200}, {360, 240}), QPoint(-20, -20));
}

} // namespace
} // namespace tolvar::test
