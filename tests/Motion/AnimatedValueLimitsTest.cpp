#include "Motion/AnimatedValue.h"
#include "Motion/MotionLimits.h"
#include "Support/HandFrames.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

namespace tolvar {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
const auto spring = Spring::withResponse(0.5, 0.82);
const Eased fade{0.3, Easing::easeInOut()};
const auto breathing = Repeat::forever(Repeat::Direction::Alternating);

/// What becomes of an animated value at the edges of what can be asked of it.
struct AnimatedValueLimitsTest : testing::Test {
    test::HandFrames frames;
    AnimationDriver driver{frames};
    int changes = 0;
    AnimatedValue value{driver, 0, [this] { ++changes; }};
};

TEST_F(AnimatedValueLimitsTest, JumpsWithoutAUsableDuration) {
    int target = 0;
    for (const double duration : {0.0, -1.0, 1e-9, infinite, notANumber}) {
        value.animateTo(++target, Eased{duration, Easing::easeIn()});
        EXPECT_EQ(value.value(), target) << duration;
        value.animateTo(++target, Spring::withResponse(duration, 0.8));
        EXPECT_EQ(value.value(), target) << duration;
        EXPECT_EQ(changes, target) << duration;
    }
    EXPECT_EQ(frames.starts(), 0);
}

TEST_F(AnimatedValueLimitsTest, JumpsAfterItsDelayWithoutADuration) {
    value.animateTo(1, Eased{}, {.delay = 0.5});
    frames.advance(0.49);
    EXPECT_EQ(value.value(), 0);
    frames.advance(0.02);
    EXPECT_EQ(value.value(), 1);
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(AnimatedValueLimitsTest, IgnoresPlacesThatAreNoNumbers) {
    value.animateTo(1, spring);
    frames.advance(0.1);
    const double before = value.value();
    for (const double bad : {notANumber, infinite, -infinite, 1e101}) {
        value.animateTo(bad, fade);
        value.jumpTo(bad);
        EXPECT_EQ(value.target(), 1) << bad;
        EXPECT_EQ(value.value(), before) << bad;
        EXPECT_EQ(AnimatedValue(driver, bad).value(), 0);
    }
    frames.advance(2);
    EXPECT_EQ(value.value(), 1);
}

TEST_F(AnimatedValueLimitsTest, StaysFiniteBetweenTheFarthestPlaces) {
    value.jumpTo(-motion::farthest);
    for (const Curve& curve : {Curve(spring), Curve(Spring::withResponse(1e-6, 0.01)),
                               Curve(Eased{1e-6, Easing(0.5, 1e100, 0.5, -1e100)})}) {
        value.animateTo(value.target() * -1, curve);
        for (int i = 0; i < 100; ++i) {
            frames.advance(1e-8);
            ASSERT_TRUE(std::isfinite(value.value()) && std::isfinite(value.velocity()));
        }
    }
}

TEST_F(AnimatedValueLimitsTest, TakesADelayThatIsNoNumberForNone) {
    for (const double delay : {notANumber, infinite, -infinite, -1.0}) {
        value.jumpTo(0);
        value.animateTo(1, fade, {.delay = delay});
        frames.advance(0.31);
        EXPECT_EQ(value.value(), 1) << delay;
    }
}

TEST_F(AnimatedValueLimitsTest, IgnoresAPrecisionThatNothingCouldReach) {
    for (const double bad : {0.0, -1.0, notANumber}) {
        value.setPrecision(bad);
        value.jumpTo(0);
        value.animateTo(1, spring);
        frames.advance(2);
        EXPECT_FALSE(value.isMoving()) << bad;
    }
}

TEST_F(AnimatedValueLimitsTest, IsOverAfterAHugeStepOfTheClock) {
    value.animateTo(1, Spring::withResponse(3000, 0.01));
    AnimatedValue other(driver, 0);
    other.animateTo(2, fade, {.delay = 3000, .repeat = {7, Repeat::Direction::Same}});
    frames.jumpTo(1e300);
    EXPECT_EQ(value.value(), 1);
    EXPECT_EQ(other.value(), 2);
    EXPECT_FALSE(driver.isAwake());
    frames.jumpTo(1000);
    value.animateTo(0, fade);
    frames.advance(0.15);
    EXPECT_NEAR(value.value(), 0.5, 1e-6);
    frames.advance(0.16);
    EXPECT_EQ(value.value(), 0);
}

TEST_F(AnimatedValueLimitsTest, KeepsBreathingWithinItsBoundsAfterAHugeStepOfTheClock) {
    value.animateTo(1, fade, {.repeat = breathing});
    frames.jumpTo(1e12);
    EXPECT_TRUE(value.isMoving());
    EXPECT_GE(value.value(), 0);
    EXPECT_LE(value.value(), 1);
}

TEST_F(AnimatedValueLimitsTest, NeverGoesBackWhenTheClockDoes) {
    value.animateTo(1, Eased{1, Easing::linear()});
    frames.advance(0.5);
    const double before = value.value();
    for (const double back : {0.1, 500.0}) {
        frames.jumpTo(frames.mediaTime() - back);
        EXPECT_EQ(value.value(), before);
    }
    frames.advance(0.51);
    EXPECT_EQ(value.value(), 1);
}

TEST_F(AnimatedValueLimitsTest, MovesSlowlyByTheSlowFactor) {
    driver.setSettings({false, 5});
    value.animateTo(1, spring);
    frames.advance(0.5);
    EXPECT_NEAR(value.value(), 1 + spring.at(0.1, {-1, 0}).value, 1e-9);
    driver.setSettings({false, 1});
    frames.advance(0.1);
    EXPECT_NEAR(value.value(), 1 + spring.at(0.2, {-1, 0}).value, 1e-9);
}

TEST_F(AnimatedValueLimitsTest, JumpsWithReducedMotion) {
    driver.setSettings({true, 1});
    value.animateTo(1, spring, {.delay = 0.45});
    EXPECT_EQ(value.value(), 1);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(frames.starts(), 0);
}

TEST_F(AnimatedValueLimitsTest, StandsStillInsteadOfBreathingWithReducedMotion) {
    driver.setSettings({true, 1});
    value.jumpTo(1);
    value.animateTo(0.4, fade, {.repeat = breathing});
    EXPECT_EQ(value.value(), 1);
    EXPECT_FALSE(value.isMoving());
}

TEST_F(AnimatedValueLimitsTest, EndsAtOnceWhenReducedMotionIsSwitchedOn) {
    AnimatedValue lamp(driver, 1);
    lamp.animateTo(0.4, fade, {.repeat = breathing});
    value.animateTo(1, spring);
    frames.advance(0.2);
    driver.setSettings({true, 1});
    EXPECT_EQ(value.value(), 1);
    EXPECT_EQ(lamp.value(), 1);
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(AnimatedValueLimitsTest, PlaysAllTheSameUnderReducedMotionWhenToldTo) {
    const AnimationOptions plain{.underReducedMotion = UnderReducedMotion::Play};
    value.animateTo(1, fade, plain);
    frames.advance(0.1);
    driver.setSettings({true, 1});
    EXPECT_TRUE(value.isMoving());
    frames.advance(0.21);
    EXPECT_EQ(value.value(), 1);
    value.animateTo(0, fade, plain);
    frames.advance(0.15);
    EXPECT_NEAR(value.value(), 0.5, 1e-9);
}

TEST_F(AnimatedValueLimitsTest, AlwaysComesToRestAndNeverTearsWhateverIsAskedOfIt) {
    std::mt19937 random(11);
    const auto pick = [&](auto... choices) {
        const std::array list{static_cast<double>(choices)...};
        return list[random() % list.size()];
    };
    for (int round = 0; round < 3000; ++round) {
        const double seconds = pick(0, -1, 1e-7, 0.05, 0.3, 1.0, notANumber, infinite);
        const double shape = pick(0, -1, 0.3, 0.8, 1, 1.7, 1e9, notANumber, infinite);
        const double target = pick(0, 1, -40, 1e6, notANumber, infinite);
        const Curve curve = random() % 2 ? Curve(Spring::withResponse(seconds, shape))
                                         : Curve(Eased{seconds, Easing(shape, 0, 0.58, shape)});
        const int runs = static_cast<int>(random() % 4);
        const auto direction =
            random() % 2 ? Repeat::Direction::Same : Repeat::Direction::Alternating;
        value.animateTo(target, curve,
                        {.delay = pick(0, 0.02, -1, notANumber), .repeat = {runs, direction}});
        frames.jumpTo(frames.mediaTime() + pick(0, 0.004, 0.016, 0.2, -0.1, -3));
        ASSERT_TRUE(std::isfinite(value.value()) && std::isfinite(value.velocity()));
        if (!value.isMoving()) {
            ASSERT_EQ(value.value(), value.target());
        }
    }
    frames.stall(20000);
    frames.advance(0.1);
    EXPECT_FALSE(value.isMoving());
    EXPECT_FALSE(driver.isAwake());
    EXPECT_EQ(frames.starts(), frames.stops());
}

} // namespace
} // namespace tolvar
