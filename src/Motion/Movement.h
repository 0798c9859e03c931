#pragma once

#include "Motion/Curve.h"
#include "Motion/MotionState.h"

namespace tolvar {

/// One whole movement, repetitions included, as a function of the seconds since its start.
///
/// The first run takes over the velocity it starts with: a spring by nature, a timing curve by
/// bending its beginning. From a standstill a timing curve is followed exactly.
class Movement {
public:
    /// What the movement is made of. All values are usable ones (`motion::isUsableValue`).
    struct Parts {
        MotionState from;
        double home = 0; ///< where runs after the first begin, and every way back leads
        double to = 0;
        Curve curve;
        Repeat repeat;
        Spring::Rest rest; ///< when a spring is done
    };

    explicit Movement(const Parts& parts);

    /// The state `seconds` after the start: `from` before it, `end()` at rest once it is over.
    MotionState at(double seconds) const;
    /// Seconds until it is over: 0 for a jump or when there is nothing to move, infinite for a
    /// repetition for ever.
    double duration() const { return m_duration; }
    /// Where it leaves things: `to`, or `home` when the last run leads back. A repetition for ever
    /// that alternates, once it is broken off, leads home.
    double end() const;

private:
    MotionState laterRun(double seconds) const;

    Parts m_parts;
    double m_firstRun; ///< seconds
    double m_laterRun; ///< seconds of each run after the first
    double m_duration;
};

} // namespace tolvar
