#include "Views/Shared/PullGesture.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

TEST(PullGestureTest, ScrollsUntilThereIsNothingLeft) {
    PullGesture gesture;
    EXPECT_DOUBLE_EQ(gesture.take(30, 100, true), 70);
    EXPECT_DOUBLE_EQ(gesture.take(-30, 70, true), 100);
    EXPECT_DOUBLE_EQ(gesture.pull(), 0);
}

TEST(PullGestureTest, PullsByWhatIsLeft) {
    PullGesture gesture;
    EXPECT_DOUBLE_EQ(gesture.take(30, 20, true), 0);
    const double first = gesture.pull();
    EXPECT_GT(first, 0);
    EXPECT_LT(first, 10) << "it follows reluctantly";
    gesture.take(1000, 0, true);
    EXPECT_GT(gesture.pull(), first);
    EXPECT_LT(gesture.pull(), 160);
}

TEST(PullGestureTest, GoesBackTheSameWayBeforeItScrolls) {
    PullGesture gesture;
    gesture.take(40, 0, true);
    EXPECT_DOUBLE_EQ(gesture.take(-30, 0, true), 0);
    EXPECT_GT(gesture.pull(), 0);
    EXPECT_DOUBLE_EQ(gesture.take(-30, 0, true), 20);
    EXPECT_DOUBLE_EQ(gesture.pull(), 0);
}

TEST(PullGestureTest, StopsAtTheTopWhereItMayNotPull) {
    PullGesture gesture;
    EXPECT_DOUBLE_EQ(gesture.take(30, 20, false), 0);
    EXPECT_DOUBLE_EQ(gesture.pull(), 0);
}

TEST(PullGestureTest, ForgetsThePullWhenTheHandLetsGo) {
    PullGesture gesture;
    gesture.take(40, 0, true);
    gesture.release();
    EXPECT_DOUBLE_EQ(gesture.pull(), 0);
    EXPECT_DOUBLE_EQ(gesture.take(-30, 0, true), 30);
}

} // namespace
} // namespace tolvar::test
