#include "Motion/Movement.h"

#include "Motion/MotionLimits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tolvar {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double exact = 1e-9;
const Eased slide{1.2, Easing::easeInOut()};
constexpr auto alternating = Repeat::Direction::Alternating;
constexpr auto same = Repeat::Direction::Same;

Movement fromRest(double from, double to, const Curve& curve, const Repeat& repeat = {}) {
    return Movement({{from, 0}, from, to, curve, repeat, {}});
}

/// Compares the velocity with the way made in a small step, everywhere.
void expectVelocityIsTheSlope(const Movement& movement, double until) {
    const double h = 1e-6;
    for (double t = 0.0105; t < until; t += 0.013)
        EXPECT_NEAR(movement.at(t).velocity,
                    (movement.at(t + h).value - movement.at(t - h).value) / (2 * h), 1e-4)
            << "at " << t;
}

TEST(Movement, FollowsATimingCurveExactlyFromAStandstill) {
    const Eased eased{0.15, Easing::easeOut()};
    const auto movement = fromRest(10, 20, eased);
    EXPECT_DOUBLE_EQ(movement.duration(), 0.15);
    for (const double share : {0.1, 0.5, 0.9}) {
        const auto [value, velocity] = movement.at(0.15 * share);
        EXPECT_NEAR(value, 10 + 10 * eased.easing.progress(share), exact);
        EXPECT_NEAR(velocity, 10 * eased.easing.slope(share) / 0.15, exact);
    }
}

TEST(Movement, FollowsASpringExactly) {
    const auto spring = Spring::withResponse(0.5, 0.82);
    const Movement movement({{3, 40}, 3, 5, spring, {}, {}});
    for (const double t : {0.01, 0.2, 0.6}) {
        const auto [x, v] = spring.at(t, {-2, 40});
        EXPECT_NEAR(movement.at(t).value, 5 + x, exact);
        EXPECT_NEAR(movement.at(t).velocity, v, exact);
    }
}

TEST(Movement, BeginsATimingCurveWithTheVelocityItIsGiven) {
    for (const auto& easing :
         {Easing::linear(), Easing::easeIn(), Easing::easeOut(), Easing::easeInOut()}) {
        const Movement movement({{1, -7}, 0, 3, Eased{0.4, easing}, {}, {}});
        EXPECT_NEAR(movement.at(1e-9).value, 1, 1e-7);
        EXPECT_NEAR(movement.at(1e-13).velocity, -7, 1e-5);
        EXPECT_NEAR(movement.at(0.4 - 1e-9).value, 3, 1e-7);
        expectVelocityIsTheSlope(movement, 0.39);
    }
}

TEST(Movement, IsAtItsEndAtRestOnceItIsOver) {
    const auto movement = fromRest(0, 1, slide);
    EXPECT_EQ(movement.at(1.2), (MotionState{1, 0}));
    EXPECT_EQ(movement.at(1e300), (MotionState{1, 0}));
    EXPECT_EQ(movement.at(infinite), (MotionState{1, 0}));
    EXPECT_EQ(movement.end(), 1);
}

TEST(Movement, IsWhereItBeginsUntilItBegins) {
    const Movement movement({{0.5, 2}, 0, 1, slide, {}, {}});
    for (const double t : {0.0, -1.0, -infinite, notANumber})
        EXPECT_EQ(movement.at(t), (MotionState{0.5, 2})) << t;
}

TEST(Movement, GoesThereAndBackForEver) {
    const auto movement = fromRest(1, 0.4, slide, Repeat::forever(alternating));
    EXPECT_EQ(movement.duration(), infinite);
    for (const double t : {0.2, 0.7, 1.1}) {
        const double there = 1 - 0.6 * Easing::easeInOut().progress(t / 1.2);
        EXPECT_NEAR(movement.at(t).value, there, exact);
        EXPECT_NEAR(movement.at(2.4 - t).value, there, exact);
        EXPECT_NEAR(movement.at(2.4 * 5000 + t).value, there, exact);
        EXPECT_NEAR(movement.at(2.4 - t).velocity, -movement.at(t).velocity, exact);
    }
    expectVelocityIsTheSlope(movement, 7);
}

TEST(Movement, RepeatsWithoutGoingBack) {
    const auto movement = fromRest(0, 1, slide, {3, same});
    EXPECT_NEAR(movement.duration(), 3.6, exact);
    EXPECT_NEAR(movement.at(1.2 + 0.3).value, movement.at(0.3).value, exact);
    EXPECT_NEAR(movement.at(2.4 + 0.3).value, movement.at(0.3).value, exact);
    EXPECT_NEAR(movement.at(std::nextafter(movement.duration(), 0)).value, 1, exact);
    EXPECT_EQ(movement.at(movement.duration()).value, 1);
}

TEST(Movement, DoesNotBeginAnotherRunInItsLastMoment) {
    for (int runs = 2; runs < 40; ++runs)
        for (double duration = 0.1; duration < 2; duration += 0.037) {
            const auto movement = fromRest(0, 1, Eased{duration, slide.easing}, {runs, same});
            ASSERT_NEAR(movement.at(std::nextafter(movement.duration(), 0)).value, 1, exact)
                << runs << " runs of " << duration;
        }
}

TEST(Movement, EndsWhereItsLastRunLeads) {
    EXPECT_EQ(fromRest(0, 1, slide, {1, alternating}).end(), 1);
    EXPECT_EQ(fromRest(0, 1, slide, {2, alternating}).end(), 0);
    EXPECT_EQ(fromRest(0, 1, slide, {3, alternating}).end(), 1);
    EXPECT_EQ(fromRest(0, 1, slide, {2, same}).end(), 1);
    EXPECT_EQ(fromRest(0, 1, slide, Repeat::forever(same)).end(), 1);
    EXPECT_EQ(fromRest(0, 1, slide, Repeat::forever(alternating)).end(), 0);
}

TEST(Movement, LeadsItsWaysBackHomeWhereverItBegan) {
    const Movement movement({{0.7, -0.5}, 1, 0.4, slide, Repeat::forever(alternating), {}});
    EXPECT_NEAR(movement.at(1.2).value, 0.4, exact);
    EXPECT_NEAR(movement.at(2.4).value, 1, exact);
    EXPECT_NEAR(movement.at(3.6).value, 0.4, exact);
    expectVelocityIsTheSlope(movement, 5);
}

TEST(Movement, SwingsASpringToAndFro) {
    const auto spring = Spring::withResponse(0.3, 0.62);
    const auto movement = fromRest(0, 1, spring, {2, alternating});
    const double run = spring.settlingTime({-1, 0}, {});
    EXPECT_NEAR(movement.duration(), 2 * run, exact);
    EXPECT_NEAR(movement.at(run).value, 1, 0.001);
    EXPECT_NEAR(movement.at(2 * run - 0.1).value, movement.at(0.1).value, exact);
}

TEST(Movement, TakesLessThanOneRunForOne) {
    for (const int runs : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(fromRest(0, 1, slide, {runs, alternating}).duration(), 1.2);
        EXPECT_EQ(fromRest(0, 1, slide, {runs, alternating}).end(), 1);
    }
}

TEST(Movement, IsAJumpWithoutAUsableDuration) {
    for (const double duration : {0.0, -1.0, 1e-9, infinite, notANumber})
        for (const auto& repeat : {Repeat{}, Repeat::forever(same), Repeat{1000000, same}}) {
            const auto movement = fromRest(0, 1, Eased{duration, Easing::easeIn()}, repeat);
            EXPECT_EQ(movement.duration(), 0) << duration;
            EXPECT_EQ(movement.at(0), (MotionState{1, 0})) << duration;
        }
    EXPECT_EQ(fromRest(0, 1, Spring()).duration(), 0);
}

TEST(Movement, IsOverAtOnceWhenThereIsNothingToMove) {
    EXPECT_EQ(fromRest(1, 1, slide).duration(), 0);
    EXPECT_EQ(fromRest(1, 1, slide, Repeat::forever(alternating)).duration(), 0);
    EXPECT_EQ(fromRest(1, 1, Spring::withResponse(0.5, 0.8), Repeat::forever(same)).duration(), 0);
}

TEST(Movement, TakesNoLongerThanTheLongestTimeThereIs) {
    EXPECT_EQ(fromRest(0, 1, Eased{1e300, {}}).duration(), motion::longest);
}

} // namespace
} // namespace tolvar
