#include "Motion/Spring.h"

#include "Motion/MotionLimits.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <random>

namespace tolvar {
namespace {

using Wide = long double;

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double exact = 1e-9;

struct WideState {
    Wide x;
    Wide v;
};

/// x'' = -stiffness x - damping x', integrated in steps of a ten-thousandth of the response.
WideState integrated(double response, double fraction, const MotionState& start, int steps) {
    const Wide stiffness = std::pow(2 * std::numbers::pi_v<Wide> / response, 2);
    const Wide damping = 4 * std::numbers::pi_v<Wide> * fraction / response;
    const Wide h = Wide(response) / 10000;
    const auto slope = [&](const WideState& s) {
        return WideState{s.v, -stiffness * s.x - damping * s.v};
    };
    const auto plus = [](const WideState& a, const WideState& b, Wide times) {
        return WideState{a.x + times * b.x, a.v + times * b.v};
    };
    WideState s{start.value, start.velocity};
    for (int i = 0; i < steps; ++i) {
        const auto k1 = slope(s);
        const auto k2 = slope(plus(s, k1, h / 2));
        const auto k3 = slope(plus(s, k2, h / 2));
        const auto k4 = slope(plus(s, k3, h));
        s = plus(plus(plus(plus(s, k1, h / 6), k2, h / 3), k3, h / 3), k4, h / 6);
    }
    return s;
}

/// The sum of the two exponentials that solve the equation, complex if it swings.
WideState bySumOfExponentials(double response, double fraction, const MotionState& start,
                              double seconds) {
    using Complex = std::complex<Wide>;
    const Wide stiffness = std::pow(2 * std::numbers::pi_v<Wide> / response, 2);
    const Wide half = 2 * std::numbers::pi_v<Wide> * fraction / response;
    const Complex split = std::sqrt(Complex(half * half - stiffness));
    const Complex r1 = -half + split;
    const Complex r2 = -half - split;
    const Complex a = (Wide(start.velocity) - r2 * Wide(start.value)) / (r1 - r2);
    const Complex b = Wide(start.value) - a;
    const Complex first = a * std::exp(r1 * Wide(seconds));
    const Complex second = b * std::exp(r2 * Wide(seconds));
    return {(first + second).real(), (r1 * first + r2 * second).real()};
}

void expectNear(const MotionState& state, const WideState& wanted, double response) {
    EXPECT_NEAR(state.value, static_cast<double>(wanted.x), exact);
    EXPECT_NEAR(state.velocity * response, static_cast<double>(wanted.v) * response, exact);
}

TEST(Spring, FollowsTheEquationOfMotionForEveryKindOfDamping) {
    const std::array fractions{0.05, 0.5,  0.62, 0.7,     0.75, 0.8, 0.82,
                               0.9,  0.99, 1.0,  1.00001, 1.3,  4.0};
    for (const double response : {0.16, 0.5, 1.1})
        for (const double fraction : fractions) {
            SCOPED_TRACE(testing::Message() << "response " << response << " damping " << fraction);
            const auto spring = Spring::withResponse(response, fraction);
            const MotionState start{-1, 3};
            for (const int steps : {1, 500, 7000, 20000})
                expectNear(spring.at(response * steps / 10000, start),
                           integrated(response, fraction, start, steps), response);
        }
}

TEST(Spring, AgreesWithTheSumOfExponentialsAnywhere) {
    std::mt19937 random(7);
    std::uniform_real_distribution<> share(0, 1);
    for (int i = 0; i < 2000; ++i) {
        const double response = 0.05 + 2 * share(random);
        const double fraction = 0.02 + 3 * share(random);
        const MotionState start{2 * share(random) - 1, (2 * share(random) - 1) / response};
        const double seconds = 5 * response * share(random);
        SCOPED_TRACE(testing::Message() << response << ' ' << fraction << ' ' << seconds);
        expectNear(Spring::withResponse(response, fraction).at(seconds, start),
                   bySumOfExponentials(response, fraction, start, seconds), response);
    }
}

TEST(Spring, PassesCriticalDampingWithoutAStep) {
    const MotionState start{1, -5};
    const auto critical = Spring::withResponse(0.5, 1).at(0.2, start);
    for (const double away : {1e-15, 1e-13, 1e-11}) {
        const auto below = Spring::withResponse(0.5, 1 - away).at(0.2, start);
        const auto above = Spring::withResponse(0.5, 1 + away).at(0.2, start);
        EXPECT_NEAR(below.value, critical.value, exact);
        EXPECT_NEAR(above.value, critical.value, exact);
        EXPECT_NEAR(below.velocity, critical.velocity, exact);
        EXPECT_NEAR(above.velocity, critical.velocity, exact);
    }
}

TEST(Spring, HasUnitMassAndTheStiffnessAndDampingOfItsResponse) {
    const auto spring = Spring::withResponse(0.5, 0.8);
    EXPECT_DOUBLE_EQ(spring.stiffness(), 157.91367041742973);
    EXPECT_DOUBLE_EQ(spring.damping(), 20.106192982974676);
}

TEST(Spring, TakesADurationAndABounce) {
    EXPECT_EQ(Spring::withDuration(0.5, 0), Spring::withResponse(0.5, 1));
    EXPECT_EQ(Spring::withDuration(0.5, 0.15), Spring::withResponse(0.5, 0.85));
    EXPECT_EQ(Spring::withDuration(0.5, -0.5), Spring::withResponse(0.5, 2));
}

TEST(Spring, IsAtItsTargetAtOnceWhenItIsRigid) {
    for (const double response : {0.0, -1.0, 1e-9, infinite, notANumber})
        for (const double seconds : {0.0, 0.5, notANumber}) {
            const auto spring = Spring::withResponse(response, 0.8);
            EXPECT_TRUE(spring.isRigid()) << response;
            EXPECT_EQ(spring.at(seconds, {1, 5}), MotionState{}) << response;
            EXPECT_EQ(spring.settlingTime({1, 5}, {}), 0) << response;
        }
}

TEST(Spring, IsRigidWhenItsDampingWouldNeverLetItRest) {
    for (const double fraction : {0.0, -0.5, infinite, -infinite, notANumber})
        EXPECT_TRUE(Spring::withResponse(0.5, fraction).isRigid()) << fraction;
    for (const double bounce : {1.0, 2.0, -1.0, -2.0, notANumber, infinite})
        EXPECT_TRUE(Spring::withDuration(0.5, bounce).isRigid()) << bounce;
}

TEST(Spring, StaysFiniteForTheStrangestSpringsAndMoments) {
    for (const double response : {1e-6, 1e-3, 1.0, 1e6, 1e300})
        for (const double fraction : {1e-300, 1e-9, 1.0, 1e3, 1e300})
            for (const double seconds : {1e-300, 1e-9, 1.0, 1e6, 1e300, infinite}) {
                const auto state =
                    Spring::withResponse(response, fraction).at(seconds, {1e100, -1e100});
                EXPECT_TRUE(std::isfinite(state.value) && std::isfinite(state.velocity))
                    << response << ' ' << fraction << ' ' << seconds;
            }
}

TEST(Spring, IsWhereItBeganBeforeTheBeginning) {
    const auto spring = Spring::withResponse(0.5, 0.8);
    for (const double seconds : {0.0, -1.0, -infinite, notANumber})
        EXPECT_EQ(spring.at(seconds, {1, 5}), (MotionState{1, 5})) << seconds;
}

TEST(Spring, StaysWithinItsLimitsForGoodOnceItHasSettled) {
    const Spring::Rest rest{0.001, 0.06};
    for (const double fraction : {0.1, 0.5, 0.82, 1.0, 1.5, 10.0}) {
        const auto spring = Spring::withResponse(0.36, fraction);
        const MotionState start{1, 20};
        const double settled = spring.settlingTime(start, rest);
        for (double t = settled; t < settled + 5; t += 0.0007) {
            const auto [x, v] = spring.at(t, start);
            ASSERT_LE(std::abs(x), rest.distance) << fraction << " at " << t;
            ASSERT_LE(std::abs(v), rest.speed) << fraction << " at " << t;
        }
    }
}

TEST(Spring, SettlesNoLaterThanHalfASwingAfterItIsLastSeenMoving) {
    const Spring::Rest rest{0.001, 0.06};
    for (const double response : {0.16, 0.36, 0.5, 1.1})
        for (const double fraction : {0.5, 0.82, 1.0, 1.5}) {
            const auto spring = Spring::withResponse(response, fraction);
            const MotionState start{1, 0};
            const double settled = spring.settlingTime(start, rest);
            double lastSeen = 0;
            for (double t = 0; t < settled; t += 0.0007) {
                const auto [x, v] = spring.at(t, start);
                if (std::abs(x) > rest.distance || std::abs(v) > rest.speed)
                    lastSeen = t;
            }
            EXPECT_GT(lastSeen, settled - response / 2) << response << ' ' << fraction;
        }
}

TEST(Spring, NeedsNoTimeToSettleWhereItRests) {
    EXPECT_EQ(Spring::withResponse(0.5, 0.8).settlingTime({0.0001, 0}, {}), 0);
}

TEST(Spring, SettlesWithinTheLongestTimeThereIs) {
    for (const double fraction : {1e-300, 1e-12, 1e-7, 1000.0})
        for (const double response : {1e-6, 1.0, 1e9, 1e300})
            EXPECT_LE(Spring::withResponse(response, fraction).settlingTime({1e100, 1e100}, {}),
                      motion::longest)
                << response << ' ' << fraction;
    EXPECT_EQ(Spring::withResponse(1, 1e-12).settlingTime({1, 0}, {}), motion::longest);
}

} // namespace
} // namespace tolvar
