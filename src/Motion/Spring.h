#pragma once

#include "Motion/MotionState.h"

namespace tolvar {

/// A spring with a unit mass on it, evaluated in closed form. A spring that could not come to rest
/// (a response or damping fraction that is not finite, a damping fraction of 0 or less) and one
/// whose response is 0 or less is rigid: it is at its target at once.
class Spring {
public:
    /// The distance and the speed below which a spring counts as resting.
    struct Rest {
        double distance = 0.001; ///< units of the value
        double speed = 0.06;     ///< units per second

        bool operator==(const Rest&) const = default;
    };

    /// Rigid.
    constexpr Spring() = default;
    /// `response`: seconds of one undamped swing. `dampingFraction`: below 1 it overshoots, 1 is
    /// the quickest without overshoot; more than 1000 counts as 1000.
    static Spring withResponse(double response, double dampingFraction);
    /// `duration`: seconds it seems to take, the same as the response. `bounce` within -1 … 1: 0 is
    /// critically damped, positive overshoots (damping fraction 1 - bounce), negative creeps
    /// (1 / (1 + bounce)).
    static Spring withDuration(double duration, double bounce);

    double response() const { return m_response; }
    double dampingFraction() const { return m_dampingFraction; }
    /// (2π / response)², per unit of mass.
    double stiffness() const;
    /// 4π × damping fraction / response, per unit of mass.
    double damping() const;
    bool isRigid() const { return m_response == 0; }

    /// The state `seconds` after `start`, both as seen from the target: `value` is the displacement
    /// from it. Before 0 and for NaN it is `start`.
    MotionState at(double seconds, const MotionState& start) const;

    /// The seconds after which, having begun in `start` (seen from the target), displacement and
    /// speed stay within `rest` for good. Never more than `motion::longest`.
    double settlingTime(const MotionState& start, const Rest& rest) const;

    bool operator==(const Spring&) const = default;

private:
    constexpr Spring(double response, double dampingFraction)
        : m_response(response)
        , m_dampingFraction(dampingFraction) {}

    double m_response = 0;
    double m_dampingFraction = 1;
};

} // namespace tolvar
