#include "Motion/AnimatedValue.h"

#include "Support/HandFrames.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace tolvar {
namespace {

constexpr double exact = 1e-9;
const auto spring = Spring::withResponse(0.5, 0.82);
const Eased fade{0.3, Easing::easeInOut()};
const Eased pulse{1.2, Easing::easeInOut()};
const auto breathing = Repeat::forever(Repeat::Direction::Alternating);

struct AnimatedValueTest : testing::Test {
    test::HandFrames frames;
    AnimationDriver driver{frames};
    int changes = 0;
    AnimatedValue value{driver, 0, [this] { ++changes; }};
};

TEST_F(AnimatedValueTest, StandsWhereItWasPut) {
    EXPECT_EQ(AnimatedValue(driver, 0.7).value(), 0.7);
    EXPECT_EQ(AnimatedValue(driver, 0.7).target(), 0.7);
    EXPECT_FALSE(AnimatedValue(driver, 0.7).isMoving());
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(AnimatedValueTest, FollowsItsSpringFrameByFrameAndThenRestsAtTheTarget) {
    value.animateTo(10, spring);
    EXPECT_EQ(value.value(), 0);
    EXPECT_EQ(value.target(), 10);
    EXPECT_TRUE(value.isMoving());
    frames.advance(0.2);
    const auto [x, v] = spring.at(0.2, {-10, 0});
    EXPECT_NEAR(value.value(), 10 + x, exact);
    EXPECT_NEAR(value.velocity(), v, exact);
    EXPECT_EQ(changes, frames.frames());
    frames.advance(3);
    EXPECT_EQ(value.value(), 10);
    EXPECT_EQ(value.velocity(), 0);
    EXPECT_FALSE(value.isMoving());
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(AnimatedValueTest, StopsASpringOnlyWithinThePrecision) {
    double beforeLast = 0;
    AnimatedValue fine(driver, 0, [&] {
        if (fine.isMoving())
            beforeLast = fine.value();
    });
    fine.setPrecision(1e-6);
    fine.animateTo(1, spring);
    frames.advance(5);
    EXPECT_NE(beforeLast, 1);
    EXPECT_NEAR(beforeLast, 1, 2e-6);
}

TEST_F(AnimatedValueTest, FollowsATimingCurveForExactlyItsDuration) {
    value.animateTo(1, fade);
    frames.advance(0.1);
    EXPECT_NEAR(value.value(), Easing::easeInOut().progress(1.0 / 3), exact);
    frames.advance(0.199);
    EXPECT_TRUE(value.isMoving());
    frames.advance(0.002);
    EXPECT_FALSE(value.isMoving());
    EXPECT_EQ(value.value(), 1);
}

TEST_F(AnimatedValueTest, TellsOfItsEndOnceItHasEnded) {
    std::vector<double> ends;
    AnimatedValue told(driver, 0, [&] {
        if (!told.isMoving())
            ends.push_back(told.value());
    });
    told.animateTo(1, fade);
    frames.advance(1);
    EXPECT_EQ(ends, std::vector<double>{1});
}

/// The state at the moment of a change of mind, and a moment later.
struct Turn {
    MotionState before;
    MotionState after;
};

Turn turnedMidway(const Curve& first, const Curve& second, double stall) {
    test::HandFrames frames;
    AnimationDriver driver(frames);
    AnimatedValue value(driver, 0);
    value.animateTo(1, first);
    frames.advance(0.1);
    frames.stall(stall);
    frames.jumpTo(frames.mediaTime());
    Turn turn;
    turn.before = {value.value(), value.velocity()};
    value.animateTo(-2, second);
    frames.advance(1e-7);
    turn.after = {value.value(), value.velocity()};
    return turn;
}

TEST_F(AnimatedValueTest, KeepsItsPlaceAndItsVelocityWhenItIsSentElsewhere) {
    const Curve curves[] = {spring, Spring::withResponse(0.16, 0.8), Spring::withResponse(0.9, 1.4),
                            fade,   Eased{0.2, Easing::easeOut()},   Eased{0.25, Easing::linear()}};
    for (const auto& first : curves)
        for (const auto& second : curves) {
            const auto [before, after] = turnedMidway(first, second, 0.003);
            EXPECT_GT(before.velocity, 0.1);
            EXPECT_NEAR(before.value, after.value, 1e-5);
            EXPECT_NEAR(before.velocity, after.velocity, 1e-2);
        }
}

TEST_F(AnimatedValueTest, TurnsFromWhereItIsByThenNotWhereItWasInTheLastFrame) {
    value.animateTo(1, spring);
    frames.advance(0.1);
    frames.stall(0.05);
    value.animateTo(-2, Spring::withResponse(0.3, 0.7));
    const auto [x, v] = spring.at(0.15, {-1, 0});
    frames.advance(0.02);
    const auto wanted = Spring::withResponse(0.3, 0.7).at(0.02, {1 + x + 2, v});
    EXPECT_NEAR(value.value(), -2 + wanted.value, exact);
    EXPECT_NEAR(value.velocity(), wanted.velocity, exact);
}

TEST_F(AnimatedValueTest, IsNotDisturbedByBeingSentWhereItGoes) {
    value.animateTo(1, fade);
    frames.advance(0.1);
    value.animateTo(1, fade);
    frames.advance(0.21);
    EXPECT_FALSE(value.isMoving());
    value.animateTo(1, spring);
    value.animateTo(1, pulse, {.delay = 1, .repeat = breathing});
    EXPECT_FALSE(value.isMoving());
    EXPECT_EQ(frames.starts(), 1);
}

TEST_F(AnimatedValueTest, WaitsForItsDelay) {
    value.animateTo(1, spring, {.delay = 0.12});
    EXPECT_TRUE(value.isMoving());
    EXPECT_EQ(value.target(), 1);
    frames.advance(0.119);
    EXPECT_EQ(value.value(), 0);
    EXPECT_EQ(changes, 0);
    frames.advance(0.051);
    EXPECT_NEAR(value.value(), 1 + spring.at(0.05, {-1, 0}).value, exact);
}

TEST_F(AnimatedValueTest, GoesOnAsBeforeUntilTheDelayIsOver) {
    value.animateTo(1, spring);
    frames.advance(0.1);
    value.animateTo(0, fade, {.delay = 0.1});
    frames.advance(0.05);
    EXPECT_NEAR(value.value(), 1 + spring.at(0.15, {-1, 0}).value, exact);
    frames.advance(0.05 + 1e-7);
    const auto [x, v] = spring.at(0.2, {-1, 0});
    EXPECT_NEAR(value.value(), 1 + x, 1e-5);
    EXPECT_NEAR(value.velocity(), v, 1e-3);
    frames.advance(0.3);
    EXPECT_EQ(value.value(), 0);
}

TEST_F(AnimatedValueTest, RestsWhereItArrivedUntilALongDelayIsOver) {
    value.animateTo(1, fade);
    value.animateTo(0, fade, {.delay = 1});
    frames.advance(0.9);
    EXPECT_EQ(value.value(), 1);
    EXPECT_TRUE(value.isMoving());
    frames.advance(1);
    EXPECT_EQ(value.value(), 0);
    EXPECT_FALSE(value.isMoving());
}

TEST_F(AnimatedValueTest, ForgetsWhatWaitsWhenItIsSentElsewhere) {
    value.animateTo(1, fade, {.delay = 0.5});
    value.animateTo(2, fade);
    frames.advance(2);
    EXPECT_EQ(value.value(), 2);
    value.animateTo(3, fade, {.delay = 0.5});
    value.jumpTo(4);
    frames.advance(2);
    EXPECT_EQ(value.value(), 4);
}

TEST_F(AnimatedValueTest, MovesTheSameAtAnyRateOfFrames) {
    test::HandFrames rareFrames;
    AnimationDriver rareDriver(rareFrames);
    AnimatedValue rare(rareDriver, 0);
    const auto send = [](AnimatedValue& each, test::HandFrames& source, bool isRare) {
        const auto pass = [&](double seconds) {
            if (isRare)
                source.stall(seconds);
            else
                source.advance(seconds);
        };
        each.animateTo(1, spring);
        pass(0.1);
        each.animateTo(0, fade, {.delay = 0.05});
        pass(0.13);
        each.animateTo(2, Spring::withResponse(0.3, 0.62));
        source.advance(0.1);
    };
    send(value, frames, false);
    send(rare, rareFrames, true);
    EXPECT_NEAR(value.value(), rare.value(), exact);
    EXPECT_NEAR(value.velocity(), rare.velocity(), exact);
}

TEST_F(AnimatedValueTest, BreathesUntilItIsSentElsewhere) {
    value.jumpTo(1);
    value.animateTo(0.4, pulse, {.repeat = breathing});
    EXPECT_EQ(value.target(), 1);
    frames.advance(1.2);
    EXPECT_NEAR(value.value(), 0.4, exact);
    frames.advance(1.2 * 1001);
    EXPECT_NEAR(value.value(), 1, exact);
    frames.advance(0.6);
    EXPECT_NEAR(value.value(), 0.7, 1e-6);
    value.animateTo(1, Eased{0.3, Easing::easeOut()});
    frames.advance(0.31);
    EXPECT_EQ(value.value(), 1);
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(AnimatedValueTest, ReturnsHomeWhenItsBreathIsBrokenOff) {
    value.jumpTo(1);
    value.animateTo(0.4, pulse, {.repeat = breathing});
    frames.advance(0.9);
    value.finish();
    EXPECT_EQ(value.value(), 1);
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(AnimatedValueTest, BreathesBetweenTheSamePlacesWhenItBeginsOnItsWay) {
    value.jumpTo(1);
    value.animateTo(0.4, pulse, {.repeat = breathing});
    frames.advance(0.6);
    value.animateTo(1, fade);
    frames.advance(0.1);
    value.animateTo(0.4, pulse, {.repeat = breathing});
    frames.advance(2.4);
    EXPECT_NEAR(value.value(), 1, 1e-6);
}

TEST_F(AnimatedValueTest, IsPutSomewhereAtRest) {
    value.animateTo(1, spring);
    frames.advance(0.1);
    changes = 0;
    value.jumpTo(7);
    EXPECT_EQ(value.value(), 7);
    EXPECT_EQ(value.velocity(), 0);
    EXPECT_EQ(value.target(), 7);
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(driver.isAwake());
    value.jumpTo(7);
    EXPECT_EQ(changes, 1);
}

TEST_F(AnimatedValueTest, FinishesAtItsTarget) {
    value.animateTo(1, spring, {.delay = 3});
    value.finish();
    EXPECT_EQ(value.value(), 1);
    EXPECT_FALSE(value.isMoving());
    value.finish();
    EXPECT_EQ(changes, 1);
}

TEST_F(AnimatedValueTest, MayBeSentOnByItsOwnCallback) {
    AnimatedValue restless(driver, 0, [&] {
        if (!restless.isMoving() && restless.value() < 3)
            restless.animateTo(restless.value() + 1, fade);
    });
    restless.animateTo(1, fade);
    frames.advance(5);
    EXPECT_EQ(restless.value(), 3);
    EXPECT_FALSE(driver.isAwake());
    EXPECT_EQ(frames.starts(), 1);
}

TEST_F(AnimatedValueTest, MayBeDestroyedByItsOwnCallback) {
    auto other = std::make_unique<AnimatedValue>(driver, 0);
    std::unique_ptr<AnimatedValue> doomed;
    // The captured text is read after the destruction.
    const std::string farewell = "gone, and long enough to be kept apart";
    std::string said;
    doomed = std::make_unique<AnimatedValue>(driver, 0, [&doomed, &other, &said, farewell] {
        doomed.reset();
        other.reset();
        said = farewell;
    });
    doomed->animateTo(1, spring);
    other->animateTo(1, spring);
    frames.advance(1);
    EXPECT_EQ(said, farewell);
    EXPECT_FALSE(driver.isAwake());
}

} // namespace
} // namespace tolvar
