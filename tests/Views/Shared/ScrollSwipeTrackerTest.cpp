#include "Views/Shared/ScrollSwipeTracker.h"

#include "Support/HandClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace tolvar::test {
namespace {

using Phase = ScrollStep::Phase;
using Verdict = ScrollSwipeTracker::Verdict;
using testing::ElementsAre;
using testing::IsEmpty;

class ScrollSwipeTrackerTest : public testing::Test {
protected:
    /// With natural scrolling, over the row.
    Verdict send(Phase phase, QPointF delta = {}) {
        return tracker.take(
            {.phase = phase, .delta = delta, .isInverted = isNatural, .isInside = isInside});
    }

    bool isNatural = true;
    bool isInside = true;
    HandClock clock;
    std::vector<double> steps;
    int ends = 0;
    ScrollSwipeTracker tracker{
        clock,
        {.changed = [this](double delta) { steps.push_back(delta); }, .ended = [this] { ++ends; }}};
};

TEST_F(ScrollSwipeTrackerTest, TakesASidewaysSwipeForTheRow) {
    EXPECT_EQ(send(Phase::began), Verdict::pass) << "nobody knows yet which way it goes";
    EXPECT_EQ(send(Phase::changed, {-10, 2}), Verdict::swallow);
    EXPECT_EQ(send(Phase::changed, {-4, 9}), Verdict::swallow) << "once sideways, always sideways";
    EXPECT_THAT(steps, ElementsAre(-10, -4));
    EXPECT_EQ(ends, 0);
    EXPECT_EQ(send(Phase::ended), Verdict::swallow);
    EXPECT_EQ(ends, 1);
}

TEST_F(ScrollSwipeTrackerTest, FollowsTheHandAlsoWhereScrollingIsReversed) {
    isNatural = false;
    send(Phase::began);
    send(Phase::changed, {10, 0});
    EXPECT_THAT(steps, ElementsAre(-10));
}

TEST_F(ScrollSwipeTrackerTest, DecidesByTheBeginningWhenThatMoves) {
    EXPECT_EQ(send(Phase::began, {-3, 0}), Verdict::swallow);
    EXPECT_THAT(steps, ElementsAre(-3));
}

TEST_F(ScrollSwipeTrackerTest, LeavesToTheListWhatGoesUpOrDown) {
    send(Phase::began);
    EXPECT_EQ(send(Phase::changed, {3, -8}), Verdict::pass);
    EXPECT_EQ(send(Phase::changed, {-30, 0}), Verdict::pass) << "once vertical, always vertical";
    EXPECT_EQ(send(Phase::ended), Verdict::pass);
    EXPECT_EQ(send(Phase::momentum, {0, -8}), Verdict::pass);
    EXPECT_THAT(steps, IsEmpty());
    EXPECT_EQ(ends, 0);
}

TEST_F(ScrollSwipeTrackerTest, TakesADiagonalForVertical) {
    send(Phase::began);
    EXPECT_EQ(send(Phase::changed, {-5, 5}), Verdict::pass);
}

TEST_F(ScrollSwipeTrackerTest, WaitsWhileNothingMoves) {
    send(Phase::began);
    EXPECT_EQ(send(Phase::changed), Verdict::pass);
    EXPECT_EQ(send(Phase::changed, {-5, 0}), Verdict::swallow);
}

TEST_F(ScrollSwipeTrackerTest, HasNothingToDoWithWhatBeginsElsewhere) {
    isInside = false;
    send(Phase::began);
    isInside = true;
    EXPECT_EQ(send(Phase::changed, {-10, 0}), Verdict::pass);
    EXPECT_EQ(send(Phase::ended), Verdict::pass);
    EXPECT_EQ(ends, 0);
}

TEST_F(ScrollSwipeTrackerTest, GoesOnWithASwipeThatLeavesTheRow) {
    send(Phase::began);
    send(Phase::changed, {-10, 0});
    isInside = false;
    EXPECT_EQ(send(Phase::changed, {-10, 0}), Verdict::swallow);
}

TEST_F(ScrollSwipeTrackerTest, SwallowsTheGlideOfASidewaysSwipeToItsEnd) {
    send(Phase::began);
    send(Phase::changed, {-10, 0});
    send(Phase::ended);
    EXPECT_EQ(send(Phase::momentum, {-6, 0}), Verdict::swallow);
    EXPECT_EQ(send(Phase::momentum, {0, 4}), Verdict::swallow);
    EXPECT_EQ(send(Phase::momentumEnded), Verdict::swallow);
    EXPECT_EQ(send(Phase::momentum, {-6, 0}), Verdict::pass) << "another glide is not its business";
    EXPECT_THAT(steps, ElementsAre(-10));
    EXPECT_EQ(ends, 1);
}

TEST_F(ScrollSwipeTrackerTest, EndsWhereTheGlideBeginsWhenNoEndWasTold) {
    send(Phase::began);
    send(Phase::changed, {-10, 0});
    EXPECT_EQ(send(Phase::momentum, {-6, 0}), Verdict::swallow);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(send(Phase::momentumEnded), Verdict::swallow);
    EXPECT_EQ(ends, 1);
}

TEST_F(ScrollSwipeTrackerTest, LetsTheNextGestureScrollAfterAGlideThatWasStopped) {
    send(Phase::began);
    send(Phase::changed, {-10, 0});
    send(Phase::ended);
    send(Phase::momentum, {-6, 0});
    send(Phase::began);
    EXPECT_EQ(send(Phase::changed, {0, 6}), Verdict::pass);
    send(Phase::ended);
    EXPECT_EQ(send(Phase::momentum, {0, 4}), Verdict::pass);
}

TEST_F(ScrollSwipeTrackerTest, EndsACancelledSwipeToo) {
    send(Phase::began);
    send(Phase::changed, {-10, 0});
    EXPECT_EQ(send(Phase::cancelled), Verdict::swallow);
    EXPECT_EQ(ends, 1);
}

TEST_F(ScrollSwipeTrackerTest, MakesUpForAnEndThatWasNeverTold) {
    send(Phase::began);
    send(Phase::changed, {-10, 0});
    send(Phase::began);
    EXPECT_EQ(ends, 1);
}

TEST_F(ScrollSwipeTrackerTest, EndsASwipeWithoutPhasesByAPause) {
    EXPECT_EQ(send(Phase::none, {-10, 0}), Verdict::swallow);
    clock.advance(0.1);
    EXPECT_EQ(send(Phase::none, {-10, 3}), Verdict::swallow);
    clock.advance(0.149);
    EXPECT_EQ(ends, 0) << "each event begins the pause anew";
    clock.advance(0.001);
    EXPECT_EQ(ends, 1);
    EXPECT_THAT(steps, ElementsAre(-10, -10));
    EXPECT_EQ(clock.runningTimers(), 0U);
}

TEST_F(ScrollSwipeTrackerTest, KeepsItsDirectionWithoutPhasesUntilThePause) {
    EXPECT_EQ(send(Phase::none, {0, 10}), Verdict::pass);
    EXPECT_EQ(send(Phase::none, {-10, 0}), Verdict::pass);
    clock.advance(0.15);
    EXPECT_EQ(ends, 0);
    EXPECT_EQ(send(Phase::none, {-10, 0}), Verdict::swallow);
}

TEST_F(ScrollSwipeTrackerTest, BelongsToTheRowItBeganOverWithoutPhasesToo) {
    isInside = false;
    send(Phase::none, {0, 10});
    isInside = true;
    EXPECT_EQ(send(Phase::none, {-10, 0}), Verdict::pass);
}

TEST_F(ScrollSwipeTrackerTest, LetsTheRestPassOfWhatWasCancelled) {
    send(Phase::none, {-10, 0});
    tracker.cancel();
    EXPECT_FALSE(tracker.isSwiping());
    EXPECT_EQ(send(Phase::none, {-10, 0}), Verdict::pass);
    clock.advance(0.15);
    EXPECT_EQ(ends, 0);
    EXPECT_THAT(steps, ElementsAre(-10));
}

} // namespace
} // namespace tolvar::test
