#pragma once

#include "Motion/MotionState.h"
#include "Motion/Spring.h"

#include <optional>
#include <variant>
#include <vector>

namespace tolvar {

/// A cubic (Hermite) piece to `value`. Where no velocity is given, two cubic pieces that meet share
/// the slope of the straight line over both (as in a Catmull-Rom spline); otherwise the piece takes
/// over the velocity the one before leaves, and ends at rest.
struct CubicKeyframe {
    double value = 0;
    double duration = 0;                                ///< seconds
    std::optional<double> startVelocity = std::nullopt; ///< units per second
    std::optional<double> endVelocity = std::nullopt;   ///< units per second

    bool operator==(const CubicKeyframe&) const = default;
};

/// A straight piece to `value`.
struct LinearKeyframe {
    double value = 0;
    double duration = 0; ///< seconds

    bool operator==(const LinearKeyframe&) const = default;
};

/// A jump to `value`, which then rests.
struct MoveKeyframe {
    double value = 0;

    bool operator==(const MoveKeyframe&) const = default;
};

/// A piece in which a spring pulls towards `value`. It is cut off after `duration` whether or not
/// it has arrived; the next piece goes on from there.
struct SpringKeyframe {
    double value = 0;
    std::optional<double> duration = std::nullopt; ///< seconds; none: until it has settled
    Spring spring = Spring::withDuration(0.5, 0);
    std::optional<double> startVelocity =
        std::nullopt; ///< units per second; none: what the piece before leaves

    bool operator==(const SpringKeyframe&) const = default;
};

using Keyframe = std::variant<CubicKeyframe, LinearKeyframe, MoveKeyframe, SpringKeyframe>;

/// A value that follows keyframes one after another. Each piece begins where the one before has
/// really got to. Pieces whose duration is not finite, 0 or less are jumps; those whose value is
/// not finite are left out; velocities that are not finite count as not given.
class KeyframeTrack {
public:
    /// `start`: the value before the first keyframe (0 if it is not finite).
    explicit KeyframeTrack(double start, std::vector<Keyframe> keyframes = {});

    double start() const { return m_start; }
    /// Seconds of all pieces together.
    double duration() const { return m_duration; }
    /// The state `seconds` after the beginning: the start before it (also for NaN), the value of
    /// the last keyframe at rest from `duration()` on.
    MotionState at(double seconds) const;

private:
    /// A keyframe placed in time, with the state it begins in.
    struct Piece {
        double begins; ///< seconds since the beginning of the track
        double duration;
        MotionState from;
        double endVelocity; ///< of a cubic piece
        Keyframe keyframe;

        MotionState at(double seconds) const;
    };

    /// Adds the piece to `keyframe`, begun in `from`; returns the state it ends in.
    MotionState append(const Keyframe& keyframe, MotionState from, const Keyframe* next);

    double m_start;
    double m_end;
    double m_duration = 0;
    std::vector<Piece> m_pieces;
};

} // namespace tolvar
