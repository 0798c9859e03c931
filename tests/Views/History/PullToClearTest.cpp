#include "Views/History/PullToClear.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

class PullToClearTest : public testing::Test {
protected:
    using Phase = PullToClear::Phase;

    void drag(double distance) { pull.setOverscroll(distance, Phase::interacting); }
    void letGo(double distance) {
        pull.release(distance);
        pull.setOverscroll(distance, Phase::other);
    }

    int armed = 0;
    int releases = 0;
    PullToClear pull{{.onArmed = [this] { ++armed; }, .onRelease = [this] { ++releases; }}};
};

TEST_F(PullToClearTest, FillsTheRingAsItIsPulled) {
    EXPECT_EQ(pull.ringFraction(), 0);
    drag(9);
    EXPECT_EQ(pull.pullDistance(), 9);
    EXPECT_EQ(pull.ringFraction(), 0.5);
    drag(40);
    EXPECT_EQ(pull.pullDistance(), 40);
    EXPECT_EQ(pull.ringFraction(), 1);
    drag(-5);
    EXPECT_EQ(pull.pullDistance(), 0);
    EXPECT_EQ(pull.ringFraction(), 0);
}

TEST_F(PullToClearTest, SaysWhatToDoNext) {
    drag(17.9);
    EXPECT_EQ(pull.text(), u"Pull to clear history");
    drag(18);
    EXPECT_EQ(pull.text(), u"Release to clear history");
    drag(17);
    EXPECT_EQ(pull.text(), u"Pull to clear history");
}

TEST_F(PullToClearTest, TapsEachTimeThatItGoesPastTheThreshold) {
    drag(10);
    EXPECT_EQ(armed, 0);
    drag(18);
    EXPECT_EQ(armed, 1);
    drag(30);
    EXPECT_EQ(armed, 1);
    drag(12);
    EXPECT_EQ(armed, 1);
    drag(19);
    EXPECT_EQ(armed, 2);
}

TEST_F(PullToClearTest, AsksWhenItIsLetGoAtTheThreshold) {
    drag(18);
    EXPECT_EQ(releases, 0);
    letGo(18);
    EXPECT_EQ(releases, 1);
}

TEST_F(PullToClearTest, DoesNothingWhenItIsLetGoJustShortOfIt) {
    drag(30);
    drag(17.9);
    letGo(17.9);
    EXPECT_EQ(releases, 0);
}

TEST_F(PullToClearTest, DoesNothingWhenThePullIsBrokenOff) {
    drag(30);
    pull.setOverscroll(30, Phase::other);
    pull.setOverscroll(0, Phase::other);
    EXPECT_EQ(releases, 0);
    EXPECT_EQ(pull.pullDistance(), 0);
}

TEST_F(PullToClearTest, TakesAListThatGlidesPastItsTopForNoPull) {
    pull.setOverscroll(25, Phase::other);
    EXPECT_EQ(pull.pullDistance(), 0);
    EXPECT_EQ(armed, 0);
}

TEST_F(PullToClearTest, GoesBackWithTheListAfterwards) {
    drag(20);
    letGo(20);
    pull.setOverscroll(12, Phase::other);
    EXPECT_EQ(pull.pullDistance(), 12);
    pull.setOverscroll(13, Phase::other);
    EXPECT_EQ(pull.pullDistance(), 12);
    EXPECT_EQ(armed, 1);
    EXPECT_EQ(releases, 1);
}

TEST_F(PullToClearTest, DoesNothingWhileItIsDisabled) {
    drag(10);
    pull.setEnabled(false);
    EXPECT_EQ(pull.pullDistance(), 0);
    drag(40);
    letGo(40);
    EXPECT_EQ(pull.pullDistance(), 0);
    EXPECT_EQ(armed, 0);
    EXPECT_EQ(releases, 0);
    pull.setEnabled(true);
    drag(18);
    EXPECT_EQ(armed, 1);
}

} // namespace
} // namespace tolvar::test
