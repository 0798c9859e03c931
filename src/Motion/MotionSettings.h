#pragma once

namespace tolvar {

/// The two switches that govern all motion of the program.
struct MotionSettings {
    /// Movements are at their end at once, keyframes do not play, loops stand still.
    bool isReduced = false;
    /// How many times slower than normal everything moves, to look at it closely: 1 … 1000. What is
    /// outside is brought inside; 1 if it is not finite.
    double slowFactor = 1;

    bool operator==(const MotionSettings&) const = default;
};

} // namespace tolvar
