#include "Motion/Movement.h"

#include "Motion/MotionLimits.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tolvar {
namespace {

MotionState follow(const Spring& spring, const MotionState& from, double to, double seconds) {
    const auto [displacement, velocity] = spring.at(seconds, {from.value - to, from.velocity});
    return {to + displacement, velocity};
}

MotionState follow(const Eased& eased, const MotionState& from, double to, double seconds) {
    const double duration = motion::usableSeconds(eased.duration);
    const double distance = to - from.value;
    const double time = seconds / duration;
    // What is missing of the velocity at the start is added, and fades out by the end.
    const double ownVelocity = distance * eased.easing.slope(0) / duration;
    const double missing = from.velocity == 0 ? 0 : from.velocity - ownVelocity;
    const double left = 1 - time;
    return {from.value + distance * eased.easing.progress(time) + missing * seconds * left * left,
            distance * eased.easing.slope(time) / duration + missing * left * (1 - 3 * time)};
}

MotionState follow(const Curve& curve, const MotionState& from, double to, double seconds) {
    return std::visit([&](const auto& kind) { return follow(kind, from, to, seconds); }, curve);
}

double runDuration(const Curve& curve, const MotionState& from, double to,
                   const Spring::Rest& rest) {
    if (const auto* spring = std::get_if<Spring>(&curve))
        return spring->settlingTime({from.value - to, from.velocity}, rest);
    if (from == MotionState{to, 0})
        return 0;
    return motion::usableSeconds(std::get<Eased>(curve).duration);
}

bool isAlternating(const Repeat& repeat) {
    return repeat.direction == Repeat::Direction::Alternating;
}

} // namespace

Movement::Movement(const Parts& parts)
    : m_parts(parts)
    , m_firstRun(runDuration(parts.curve, parts.from, parts.to, parts.rest))
    , m_laterRun(runDuration(parts.curve, {parts.home, 0}, parts.to, parts.rest))
    , m_duration(m_firstRun) {
    const auto& runs = parts.repeat.runs;
    if (runs)
        m_duration += m_laterRun * (std::max(*runs, 1) - 1);
    else if (m_laterRun > 0)
        m_duration = std::numeric_limits<double>::infinity();
}

MotionState Movement::at(double seconds) const {
    if (seconds >= m_duration)
        return {end(), 0};
    if (!(seconds > 0))
        return m_parts.from;
    if (seconds < m_firstRun)
        return follow(m_parts.curve, m_parts.from, m_parts.to, seconds);
    return laterRun(seconds - m_firstRun);
}

MotionState Movement::laterRun(double seconds) const {
    double run = std::floor(seconds / m_laterRun);
    if (m_parts.repeat.runs)
        run = std::min(run, *m_parts.repeat.runs - 2.0);
    const double since = std::clamp(seconds - run * m_laterRun, 0.0, m_laterRun);
    const MotionState home{m_parts.home, 0};
    const bool isWayBack = isAlternating(m_parts.repeat) && std::fmod(run, 2) == 0;
    if (!isWayBack)
        return follow(m_parts.curve, home, m_parts.to, since);
    const auto [value, velocity] = follow(m_parts.curve, home, m_parts.to, m_laterRun - since);
    return {value, -velocity};
}

double Movement::end() const {
    const auto& runs = m_parts.repeat.runs;
    const bool lastLeadsBack = !runs || std::max(*runs, 1) % 2 == 0;
    return isAlternating(m_parts.repeat) && lastLeadsBack ? m_parts.home : m_parts.to;
}

} // namespace tolvar
