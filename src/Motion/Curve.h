#pragma once

#include "Motion/Easing.h"
#include "Motion/Spring.h"

#include <optional>
#include <variant>

namespace tolvar {

/// A movement along a timing curve. At once if `duration` is not finite, 0 or less.
struct Eased {
    double duration = 0; ///< seconds
    Easing easing = {};

    bool operator==(const Eased&) const = default;
};

/// How something gets from where it is to where it shall be.
using Curve = std::variant<Spring, Eased>;

/// How often a movement is made, and which way.
struct Repeat {
    enum class Direction {
        Same,       ///< each run begins anew at the start
        Alternating ///< every second run goes back along the same curve
    };

    /// The number of runs, there and back being two; less than 1 counts as 1. None: for ever.
    std::optional<int> runs = 1;
    Direction direction = Direction::Same;

    static Repeat forever(Direction direction) { return {std::nullopt, direction}; }

    bool operator==(const Repeat&) const = default;
};

/// What becomes of a movement while reduced motion is on.
enum class UnderReducedMotion {
    Jump, ///< it is at its end at once
    Play  ///< it is made all the same: a plain fade or slide that stands in for a livelier one
};

} // namespace tolvar
