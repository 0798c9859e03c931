#include "Motion/AnimatedValue.h"

#include "Motion/MotionLimits.h"

#include <utility>

namespace tolvar {

AnimatedValue::AnimatedValue(AnimationDriver& driver, double value, Changed changed)
    : m_driver(driver)
    , m_changed(std::move(changed))
    , m_state{motion::isUsableValue(value) ? value : 0, 0}
    , m_target(m_state.value) {}

AnimatedValue::~AnimatedValue() {
    m_driver.remove(*this);
}

void AnimatedValue::animateTo(double target, const Curve& curve, const AnimationOptions& options) {
    const Request request{target, curve, options};
    const bool changesNothing = isMoving() ? request == m_request : target == m_state.value;
    if (motion::isUsableValue(target) && !changesNothing)
        begin(request);
}

void AnimatedValue::begin(const Request& request) {
    const auto& options = request.options;
    const double now = m_driver.now();
    promotePending(now);
    const double delay = motion::usableSeconds(options.delay);
    const double begins = now + delay;
    const Movement movement({m_present ? m_present->at(begins) : m_state, m_target, request.target,
                             request.curve, options.repeat, m_rest});
    const bool jumps =
        m_driver.settings().isReduced && options.underReducedMotion == UnderReducedMotion::Jump;
    if (jumps || delay + movement.duration() == 0) {
        stopAt(movement.end());
        return;
    }
    m_request = request;
    m_target = movement.end();
    m_pending = Run{movement, begins};
    promotePending(now);
    m_driver.add(*this);
}

void AnimatedValue::jumpTo(double value) {
    if (motion::isUsableValue(value))
        stopAt(value);
}

void AnimatedValue::setPrecision(double precision) {
    // The speed at which it moves by no more than the precision in a sixtieth of a second.
    if (precision > 0)
        m_rest = {precision, precision * 60};
}

void AnimatedValue::advance(double now) {
    promotePending(now);
    const double before = m_state.value;
    if (m_present) {
        m_state = m_present->at(now);
        if (m_present->isOver(now))
            m_present.reset();
    }
    if (!isMoving())
        m_driver.remove(*this);
    if (!isMoving() || m_state.value != before)
        tellChanged();
}

void AnimatedValue::reduce() {
    if (m_request.options.underReducedMotion == UnderReducedMotion::Jump)
        finish();
}

/// What waited for its delay takes the place of what went on until then.
void AnimatedValue::promotePending(double now) {
    if (m_pending && m_pending->begins <= now)
        m_present = std::exchange(m_pending, std::nullopt);
}

void AnimatedValue::stopAt(double value) {
    const bool changes = isMoving() || m_state.value != value;
    m_present.reset();
    m_pending.reset();
    m_state = {value, 0};
    m_target = value;
    m_driver.remove(*this);
    if (changes)
        tellChanged();
}

/// Calls a copy, as the callback may destroy this object and itself with it.
void AnimatedValue::tellChanged() const {
    if (const auto changed = m_changed)
        changed();
}

} // namespace tolvar
