#pragma once

namespace tolvar {

/// A timing curve: a cubic Bézier from (0, 0) to (1, 1), x the share of the time that has passed,
/// y the share of the way.
class Easing {
public:
    /// Linear.
    constexpr Easing() = default;
    /// The two control points. x1 and x2 are brought into 0 … 1; with a coordinate that is not
    /// finite, or beyond `motion::farthest`, the curve is linear.
    Easing(double x1, double y1, double x2, double y2);

    static Easing linear();
    static Easing easeIn();
    static Easing easeOut();
    static Easing easeInOut();

    /// The share of the way after `time`, a share of the duration. Exactly 0 up to 0 and for NaN,
    /// exactly 1 from 1 on.
    double progress(double time) const;
    /// The slope of `progress` at `time`, which is brought into 0 … 1; 0 where the curve is
    /// vertical.
    double slope(double time) const;

    bool operator==(const Easing&) const = default;

private:
    /// One coordinate of the curve, as the two control values between 0 and 1; `s` runs from 0 to 1
    /// along the curve.
    struct Axis {
        double first;
        double second;

        double at(double s) const;
        double derivative(double s) const;
        double secondDerivative(double s) const;

        bool operator==(const Axis&) const = default;
    };

    double parameterAt(double time) const;

    Axis m_x{1.0 / 3, 2.0 / 3};
    Axis m_y{1.0 / 3, 2.0 / 3};
};

} // namespace tolvar
