#include "Motion/Easing.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace tolvar {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double exact = 1e-9;

struct ControlPoints {
    double x1, y1, x2, y2;
};

/// One coordinate as a polynomial in `s`, in long double.
long double polynomial(double first, double second, long double s) {
    const long double c = 3.0L * first;
    const long double b = 3.0L * (second - static_cast<long double>(first)) - c;
    return ((1 - c - b) * s + b) * s * s + c * s;
}

/// By halving the interval until nothing is left of it.
double bisected(const ControlPoints& points, double time) {
    long double low = 0;
    long double high = 1;
    for (int i = 0; i < 80; ++i) {
        const long double middle = (low + high) / 2;
        (polynomial(points.x1, points.x2, middle) < time ? low : high) = middle;
    }
    return static_cast<double>(polynomial(points.y1, points.y2, low));
}

TEST(Easing, SolvesItsCurveToABillionth) {
    const std::array<ControlPoints, 9> curves{{{0.42, 0, 1, 1},
                                               {0, 0, 0.58, 1},
                                               {0.42, 0, 0.58, 1},
                                               {0.25, 0.1, 0.25, 1},
                                               {0.68, -0.55, 0.27, 1.55},
                                               {0.95, 0, 0.05, 1},
                                               {0.999, 0, 0.001, 1},
                                               {0, 0, 0, 1},
                                               {1.0 / 3, 1, 2.0 / 3, 1}}};
    for (const auto& points : curves) {
        const Easing easing(points.x1, points.y1, points.x2, points.y2);
        for (int i = 0; i <= 10000; ++i)
            ASSERT_NEAR(easing.progress(i / 10000.0), bisected(points, i / 10000.0), exact)
                << points.x1 << ' ' << points.x2 << " at " << i;
    }
}

TEST(Easing, SolvesSteepCurvesAndFlatOnes) {
    for (const double x1 : {0.0, 1e-6, 0.001, 0.3, 0.9, 0.999})
        for (const double x2 : {0.001, 0.1, 0.5, 0.999, 1.0})
            for (const double t : {1e-5, 0.001, 0.03, 0.2, 0.49, 0.7, 0.95, 0.9999}) {
                EXPECT_NEAR(Easing(x1, x1, x2, x2).progress(t), t, exact) << x1 << ' ' << x2;
                EXPECT_NEAR(Easing(x1, 0, x2, 1).progress(t), bisected({x1, 0, x2, 1}, t), exact)
                    << x1 << ' ' << x2 << " at " << t;
            }
}

TEST(Easing, KnowsTheUsualCurvesByName) {
    EXPECT_EQ(Easing::linear(), Easing());
    EXPECT_EQ(Easing::easeIn(), Easing(0.42, 0, 1, 1));
    EXPECT_EQ(Easing::easeOut(), Easing(0, 0, 0.58, 1));
    EXPECT_EQ(Easing::easeInOut(), Easing(0.42, 0, 0.58, 1));
    EXPECT_NEAR(Easing::linear().progress(0.3), 0.3, exact);
    EXPECT_NEAR(Easing::easeInOut().progress(0.5), 0.5, exact);
}

TEST(Easing, CanBeTheCubicThatSlowsDown) {
    const Easing easing(1.0 / 3, 1, 2.0 / 3, 1);
    for (const double t : {0.01, 0.2, 0.5, 0.9})
        EXPECT_NEAR(easing.progress(t), 1 - std::pow(1 - t, 3), exact);
}

TEST(Easing, HasTheSlopeOfItsProgress) {
    const double h = 1e-6;
    for (const auto& easing :
         {Easing::linear(), Easing::easeIn(), Easing::easeOut(), Easing::easeInOut()})
        for (double t = 0.01; t < 0.995; t += 0.01)
            EXPECT_NEAR(easing.slope(t),
                        (easing.progress(t + h) - easing.progress(t - h)) / (2 * h), 1e-6);
}

TEST(Easing, HasASlopeAtItsEndsWhereAControlPointLiesOnThem) {
    EXPECT_NEAR(Easing::easeOut().slope(0), 1 / 0.58, exact);
    EXPECT_NEAR(Easing::easeOut().slope(1e-12), 1 / 0.58, 1e-5);
    EXPECT_NEAR(Easing::easeOut().slope(1), 0, exact);
    EXPECT_NEAR(Easing::easeIn().slope(0), 0, exact);
    EXPECT_NEAR(Easing::easeIn().slope(1), 1 / 0.58, exact);
    EXPECT_NEAR(Easing::linear().slope(0), 1, exact);
}

TEST(Easing, HasNoSlopeWhereItIsVertical) {
    EXPECT_EQ(Easing(0, 1, 0.5, 1).slope(0), 0);
    EXPECT_EQ(Easing(1, 0, 0, 1).slope(0.5), 0);
}

TEST(Easing, IsExactlyAtItsEndsOutsideOfItsTime) {
    for (const auto& easing : {Easing::linear(), Easing::easeIn(), Easing::easeOut()}) {
        for (const double before : {0.0, -0.0, -1.0, -infinite, notANumber})
            EXPECT_EQ(easing.progress(before), 0) << before;
        for (const double after : {1.0, 1.5, infinite})
            EXPECT_EQ(easing.progress(after), 1) << after;
        EXPECT_TRUE(std::isfinite(easing.slope(notANumber)));
        EXPECT_TRUE(std::isfinite(easing.slope(infinite)));
    }
}

TEST(Easing, BringsTimesOfControlPointsIntoTheirRange) {
    EXPECT_EQ(Easing(-1, 0, 2, 1), Easing(0, 0, 1, 1));
}

TEST(Easing, IsLinearWhenAControlPointIsNoPoint) {
    for (const double bad : {notANumber, infinite, -infinite, 1e200}) {
        EXPECT_EQ(Easing(bad, 0, 1, 1), Easing::linear());
        EXPECT_EQ(Easing(0.4, bad, 1, 1), Easing::linear());
        EXPECT_EQ(Easing(0.4, 0, bad, 1), Easing::linear());
        EXPECT_EQ(Easing(0.4, 0, 1, bad), Easing::linear());
    }
}

} // namespace
} // namespace tolvar
