#pragma once

namespace tolvar {

/// Where something stands and how fast it goes.
struct MotionState {
    double value = 0;
    double velocity = 0; ///< units of `value` per second

    bool operator==(const MotionState&) const = default;
};

} // namespace tolvar
