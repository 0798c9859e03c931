#include "Motion/Keyframes.h"

#include "Motion/MotionLimits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tolvar {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double exact = 1e-9;

const auto lively = Spring::withDuration(0.5, 0.3);

TEST(KeyframeTrack, StandsAtItsStartWithoutKeyframes) {
    const KeyframeTrack track(3);
    EXPECT_EQ(track.duration(), 0);
    EXPECT_EQ(track.at(0), (MotionState{3, 0}));
    EXPECT_EQ(track.at(10), (MotionState{3, 0}));
}

TEST(KeyframeTrack, IsAtItsStartBeforeAndAtItsLastValueAfterItsTime) {
    const KeyframeTrack track(1, {SpringKeyframe{1.7, 0.12, lively}, SpringKeyframe{2, 0.1}});
    EXPECT_DOUBLE_EQ(track.duration(), 0.22);
    for (const double before : {-1.0, -infinite, notANumber})
        EXPECT_EQ(track.at(before), (MotionState{1, 0}));
    for (const double after : {0.22, 1.0, infinite})
        EXPECT_EQ(track.at(after), (MotionState{2, 0}));
}

TEST(KeyframeTrack, GoesStraightAlongALinearPiece) {
    const KeyframeTrack track(2, {LinearKeyframe{4, 0.5}, LinearKeyframe{0, 1}});
    EXPECT_NEAR(track.at(0.25).value, 3, exact);
    EXPECT_NEAR(track.at(0.25).velocity, 4, exact);
    EXPECT_NEAR(track.at(1).value, 2, exact);
    EXPECT_NEAR(track.at(1).velocity, -4, exact);
}

TEST(KeyframeTrack, JumpsAtAMove) {
    const KeyframeTrack track(0, {LinearKeyframe{1, 0.5}, MoveKeyframe{5}, LinearKeyframe{6, 0.5}});
    EXPECT_NEAR(track.at(std::nextafter(0.5, 0)).value, 1, exact);
    EXPECT_NEAR(track.at(0.5).value, 5, exact);
    EXPECT_NEAR(track.at(0.75).value, 5.5, exact);
    EXPECT_EQ(KeyframeTrack(0, {MoveKeyframe{5}, LinearKeyframe{6, 1}}).at(0).value, 5);
}

TEST(KeyframeTrack, RisesAndFallsGentlyInASingleCubicPiece) {
    const KeyframeTrack track(0, {CubicKeyframe{1, 2}});
    for (const double s : {0.0, 0.1, 0.5, 0.8}) {
        EXPECT_NEAR(track.at(2 * s).value, s * s * (3 - 2 * s), exact);
        EXPECT_NEAR(track.at(2 * s).velocity, (6 * s - 6 * s * s) / 2, exact);
    }
}

TEST(KeyframeTrack, PassesTwoCubicPiecesWithTheSlopeOverBoth) {
    const KeyframeTrack track(0, {CubicKeyframe{1, 0.2}, CubicKeyframe{3, 0.6}});
    const double slope = 3 / 0.8;
    EXPECT_NEAR(track.at(0.2).velocity, slope, exact);
    EXPECT_NEAR(track.at(0.2 - 1e-12).velocity, slope, 1e-6);
    // The Bernstein form of the same piece.
    const double s = 0.25;
    const double b1 = 1 + slope * 0.6 / 3;
    const double wanted = std::pow(1 - s, 3) + 3 * b1 * s * (1 - s) * (1 - s) +
                          3 * 3 * s * s * (1 - s) + 3 * s * s * s;
    EXPECT_NEAR(track.at(0.2 + 0.6 * s).value, wanted, exact);
}

TEST(KeyframeTrack, EndsACubicPieceAtRestBeforeAPieceOfAnotherKind) {
    for (const Keyframe& next : {Keyframe(LinearKeyframe{9, 1}), Keyframe(MoveKeyframe{9}),
                                 Keyframe(SpringKeyframe{9, 1}), Keyframe(CubicKeyframe{9, 0})}) {
        const KeyframeTrack track(0, {CubicKeyframe{1, 0.5}, next, LinearKeyframe{0, 1}});
        EXPECT_NEAR(track.at(0.5 - 1e-12).velocity, 0, 1e-6) << next.index();
    }
}

TEST(KeyframeTrack, PassesACubicPieceWithTheVelocitiesGiven) {
    const KeyframeTrack track(
        0, {CubicKeyframe{1, 0.5, 4, -6}, CubicKeyframe{2, 0.5}, CubicKeyframe{0, 0.5, 7}});
    EXPECT_NEAR(track.at(0).velocity, 4, exact);
    EXPECT_NEAR(track.at(0.5 - 1e-12).velocity, -6, 1e-6);
    EXPECT_NEAR(track.at(0.5).velocity, -6, exact);
    EXPECT_NEAR(track.at(1 - 1e-12).velocity, 7, 1e-6);
    EXPECT_NEAR(track.at(1).velocity, 7, exact);
}

TEST(KeyframeTrack, PullsTowardsTheValueOfASpringPieceAndGoesOnFromWhereItGot) {
    const auto spring = Spring::withDuration(0.5, 0.15);
    const KeyframeTrack track(1,
                              {SpringKeyframe{1.7, 0.12, spring}, SpringKeyframe{1, 0.35, lively}});
    const auto cut = spring.at(0.12, {-0.7, 0});
    EXPECT_NEAR(track.at(0.06).value, 1.7 + spring.at(0.06, {-0.7, 0}).value, exact);
    EXPECT_NEAR(track.at(0.12).value, 1.7 + cut.value, exact);
    EXPECT_NEAR(track.at(0.12).velocity, cut.velocity, exact);
    const auto back = lively.at(0.2, {0.7 + cut.value, cut.velocity});
    EXPECT_NEAR(track.at(0.32).value, 1 + back.value, exact);
    EXPECT_NEAR(track.at(0.32).velocity, back.velocity, exact);
}

TEST(KeyframeTrack, LetsASpringPieceWithoutADurationSettle) {
    const KeyframeTrack track(0, {SpringKeyframe{1, std::nullopt, lively}});
    EXPECT_DOUBLE_EQ(track.duration(), lively.settlingTime({-1, 0}, {}));
}

TEST(KeyframeTrack, StartsASpringPieceWithTheVelocityGiven) {
    const KeyframeTrack track(0, {LinearKeyframe{1, 1}, SpringKeyframe{1, 0.5, lively, -3}});
    EXPECT_NEAR(track.at(1).velocity, -3, exact);
    EXPECT_NEAR(track.at(1.1).value, 1 + lively.at(0.1, {0, -3}).value, exact);
}

TEST(KeyframeTrack, RunsOnWithoutAStepInValueOrVelocityThroughPiecesOfEveryKind) {
    const KeyframeTrack track(
        0, {CubicKeyframe{0, 0.01}, SpringKeyframe{-30, 0.5, Spring::withDuration(0.5, 0.15)},
            CubicKeyframe{-40, 0.4}, CubicKeyframe{10, 0.3}, SpringKeyframe{0, 0.2, lively}});
    const double h = 1e-9;
    for (const double joint : {0.01, 0.51, 0.91, 1.21}) {
        EXPECT_NEAR(track.at(joint - h).value, track.at(joint + h).value, 1e-5) << joint;
        EXPECT_NEAR(track.at(joint - h).velocity, track.at(joint + h).velocity, 1e-3) << joint;
    }
    const double step = 1e-6;
    for (double t = 0.0203; t < 1.4; t += 0.017)
        EXPECT_NEAR(track.at(t).velocity,
                    (track.at(t + step).value - track.at(t - step).value) / (2 * step), 1e-3)
            << t;
}

TEST(KeyframeTrack, TakesPiecesWithoutAUsableDurationForJumps) {
    for (const double bad : {0.0, -1.0, infinite, notANumber}) {
        const KeyframeTrack track(0, {CubicKeyframe{1, bad}, LinearKeyframe{2, bad},
                                      SpringKeyframe{3, bad}, LinearKeyframe{4, 1}});
        EXPECT_EQ(track.duration(), 1) << bad;
        EXPECT_NEAR(track.at(0.5).value, 3.5, exact) << bad;
    }
}

TEST(KeyframeTrack, LeavesOutWhatIsNoNumber) {
    for (const double bad : {infinite, -infinite, notANumber, 1e200}) {
        const KeyframeTrack track(bad, {CubicKeyframe{bad, 1}, LinearKeyframe{1, 1}});
        EXPECT_EQ(track.start(), 0) << bad;
        EXPECT_EQ(track.duration(), 1) << bad;
        EXPECT_NEAR(track.at(0.5).value, 0.5, exact) << bad;
        EXPECT_EQ(KeyframeTrack(0, {CubicKeyframe{1, 1, bad, bad}}).at(0.3),
                  KeyframeTrack(0, {CubicKeyframe{1, 1}}).at(0.3));
    }
}

TEST(KeyframeTrack, LastsNoLongerPerPieceThanTheLongestTimeThereIs) {
    const KeyframeTrack track(0, {SpringKeyframe{1, std::nullopt, Spring::withResponse(1, 1e-12)}});
    EXPECT_EQ(track.duration(), motion::longest);
}

} // namespace
} // namespace tolvar
