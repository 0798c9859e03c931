#include "Views/Shared/SwipeGesture.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

class SwipeGestureTest : public testing::Test {
protected:
    SwipeGestureTest() { gesture.setOpenWidth(100); }

    /// So slowly that it is no flick.
    void dragSlowlyTo(double translation) {
        gesture.dragTo(translation - 1 * (translation < 0 ? -1 : 1));
        gesture.dragTo(translation);
    }

    SwipeGesture gesture;
};

TEST_F(SwipeGestureTest, FollowsTheHandBetweenClosedAndOpen) {
    gesture.dragTo(-40);
    EXPECT_DOUBLE_EQ(gesture.offset(), -40);
    gesture.dragTo(-100);
    EXPECT_DOUBLE_EQ(gesture.offset(), -100);
}

TEST_F(SwipeGestureTest, MovesAClosedRowTheOtherWayByAFifth) {
    gesture.dragTo(50);
    EXPECT_DOUBLE_EQ(gesture.offset(), 10);
}

TEST_F(SwipeGestureTest, StretchesBeyondTheOpenPlaceByAQuarter) {
    gesture.dragTo(-140);
    EXPECT_DOUBLE_EQ(gesture.offset(), -110);
    gesture.setOpen(true);
    gesture.dragTo(-40);
    EXPECT_DOUBLE_EQ(gesture.offset(), -110);
    gesture.dragTo(150);
    EXPECT_DOUBLE_EQ(gesture.offset(), 10) << "and an open row is dragged past its closed place";
}

TEST_F(SwipeGestureTest, OpensWhenMoreThanHalfIsRevealed) {
    dragSlowlyTo(-60);
    EXPECT_TRUE(gesture.settle());
    EXPECT_DOUBLE_EQ(gesture.offset(), -100);
}

TEST_F(SwipeGestureTest, ClosesWhenHalfOrLessIsRevealed) {
    dragSlowlyTo(-40);
    EXPECT_FALSE(gesture.settle());
    EXPECT_DOUBLE_EQ(gesture.offset(), 0);
    dragSlowlyTo(-50);
    EXPECT_FALSE(gesture.settle()) << "exactly half is not enough";
}

TEST_F(SwipeGestureTest, ClosesAnOpenRowThatWasPushedBackByHalf) {
    gesture.setOpen(true);
    dragSlowlyTo(49);
    EXPECT_TRUE(gesture.settle());
    dragSlowlyTo(50);
    EXPECT_FALSE(gesture.settle());
}

TEST_F(SwipeGestureTest, GoesWhereItWasFlickedTo) {
    gesture.dragTo(-12);
    gesture.dragTo(-14.5);
    EXPECT_TRUE(gesture.settle());
    gesture.dragTo(12);
    gesture.dragTo(14.5);
    EXPECT_FALSE(gesture.settle());
}

TEST_F(SwipeGestureTest, TakesAStepOfTwoPointsForNoFlick) {
    gesture.dragTo(-12);
    gesture.dragTo(-14);
    EXPECT_FALSE(gesture.settle());
    gesture.setOpen(true);
    gesture.dragTo(12);
    gesture.dragTo(14);
    EXPECT_TRUE(gesture.settle());
}

TEST_F(SwipeGestureTest, GoesByTheLastStepAlone) {
    gesture.dragTo(-90);
    gesture.dragTo(-86);
    EXPECT_FALSE(gesture.settle()) << "it was on its way back";
}

TEST_F(SwipeGestureTest, AddsScrolledStepsUp) {
    gesture.scrollBy(-30);
    gesture.scrollBy(-30);
    EXPECT_DOUBLE_EQ(gesture.offset(), -60);
    gesture.scrollBy(-1);
    EXPECT_TRUE(gesture.settle());
}

TEST_F(SwipeGestureTest, NeverOpensARowWithNothingToReveal) {
    gesture.setOpenWidth(0);
    gesture.dragTo(-40);
    EXPECT_DOUBLE_EQ(gesture.offset(), -10);
    EXPECT_DOUBLE_EQ(gesture.revealProgress(gesture.offset()), 0);
    EXPECT_FALSE(gesture.settle());
    gesture.setOpen(true);
    EXPECT_FALSE(gesture.isOpen());
}

TEST_F(SwipeGestureTest, BeginsEachGestureAnew) {
    gesture.dragTo(-60);
    gesture.setOpen(false);
    EXPECT_DOUBLE_EQ(gesture.offset(), 0);
    EXPECT_FALSE(gesture.settle()) << "nothing of a gesture that was broken off is left";
}

TEST_F(SwipeGestureTest, RevealsInProportionAndNeverMoreThanAll) {
    EXPECT_DOUBLE_EQ(gesture.revealProgress(5), 0);
    EXPECT_DOUBLE_EQ(gesture.revealProgress(0), 0);
    EXPECT_DOUBLE_EQ(gesture.revealProgress(-25), 0.25);
    EXPECT_DOUBLE_EQ(gesture.revealProgress(-100), 1);
    EXPECT_DOUBLE_EQ(gesture.revealProgress(-130), 1);
}

} // namespace
} // namespace tolvar::test
