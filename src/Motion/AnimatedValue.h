#pragma once

#include "Motion/AnimationDriver.h"
#include "Motion/Movement.h"

#include <QtGlobal>

#include <functional>
#include <optional>

namespace tolvar {

/// When and how often a value moves.
struct AnimationOptions {
    double delay = 0; ///< seconds; until then it goes on as before
    Repeat repeat = {};
    UnderReducedMotion underReducedMotion = UnderReducedMotion::Jump;

    bool operator==(const AnimationOptions&) const = default;
};

/// A number that moves: a member of what paints it. Sent somewhere else in mid-flight, it goes on
/// from where it is with the velocity it has. Numbers that are not finite, or farther from 0 than
/// `motion::farthest`, are ignored.
class AnimatedValue final : private Animation {
public:
    /// Called after `value()` has changed, and when a movement is over; may destroy the value.
    using Changed = std::function<void()>;

    /// `driver` outlives the value.
    AnimatedValue(AnimationDriver& driver, double value, Changed changed = {});
    ~AnimatedValue() override;
    Q_DISABLE_COPY_MOVE(AnimatedValue)

    /// Where it stands in the present frame; where it will stay, while it does not move.
    double value() const { return m_state.value; }
    /// Units per second; 0 while it does not move.
    double velocity() const { return m_state.velocity; }
    /// Where it will be when the movement is over (see `Movement::end`).
    double target() const { return m_target; }
    /// Whether a movement is going on or waits for its delay.
    bool isMoving() const { return m_present || m_pending; }

    /// Sends it to `target`. A repetition goes to and fro between `target` and what was `target()`
    /// before. Nothing happens if it stands there, or is on its way there by the same curve with
    /// the same options.
    void animateTo(double target, const Curve& curve, const AnimationOptions& options = {});
    /// Puts it at `value`, at rest.
    void jumpTo(double value);
    /// Ends the movement at `target()` at once, as when nobody can see it any more.
    void finish() { jumpTo(m_target); }

    /// The difference that nobody sees, in units of the value: a spring stops within it. 0.001
    /// unless set, which suits opacities, scales and points alike. Ignored if it is not above 0.
    void setPrecision(double precision);

private:
    struct Request {
        double target;
        Curve curve;
        AnimationOptions options;

        bool operator==(const Request&) const = default;
    };
    struct Run {
        Movement movement;
        double begins; ///< time of the driver

        MotionState at(double now) const { return movement.at(now - begins); }
        bool isOver(double now) const { return now - begins >= movement.duration(); }
    };

    void advance(double now) override;
    void reduce() override;

    void begin(const Request& request);
    void promotePending(double now);
    void stopAt(double value);
    void tellChanged() const;

    AnimationDriver& m_driver;
    Changed m_changed;
    Spring::Rest m_rest;
    MotionState m_state;
    double m_target;
    Request m_request; ///< the last one, while it moves
    std::optional<Run> m_present;
    std::optional<Run> m_pending; ///< waits for its delay
};

} // namespace tolvar
