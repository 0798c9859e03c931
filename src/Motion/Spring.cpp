#include "Motion/Spring.h"

#include "Motion/MotionLimits.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tolvar {
namespace {

constexpr double strongestDamping = 1000;
/// By then even the weakest spring counts as resting; later moments would overflow.
constexpr double endOfTime = 1e9;

/// How the two fundamental motions of a damped spring have gone on after some time: the one that
/// began at 1 and the one that began with velocity 1, both without the share that damping adds.
struct Decay {
    double cosine;
    double sine; ///< seconds
};

Decay underdamped(double decayRate, double swingRate, double seconds) {
    const double decay = std::exp(-decayRate * seconds);
    const double angle = swingRate * seconds;
    // sin(a) / a stays exact down to the smallest angle, so critical damping needs no case.
    const double sinc = angle == 0 ? 1 : std::sin(angle) / angle;
    return {decay * std::cos(angle), decay * seconds * sinc};
}

/// In terms of the slower of the two exponentials, as cosh and sinh would overflow.
Decay overdamped(double decayRate, double splitRate, double frequency, double seconds) {
    const double slowRate = frequency * frequency / (decayRate + splitRate);
    const double slow = std::exp(-slowRate * seconds);
    const double exponent = 2 * splitRate * seconds;
    const double quotient = exponent == 0 ? 1 : -std::expm1(-exponent) / exponent;
    return {slow * (1 + std::exp(-exponent)) / 2, slow * seconds * quotient};
}

double frequencyOf(const Spring& spring) {
    return 2 * std::numbers::pi / spring.response();
}

} // namespace

Spring Spring::withResponse(double response, double dampingFraction) {
    const bool comesToRest = std::isfinite(response) && response >= motion::shortest &&
                             std::isfinite(dampingFraction) && dampingFraction > 0;
    if (!comesToRest)
        return {};
    return {response, std::min(dampingFraction, strongestDamping)};
}

Spring Spring::withDuration(double duration, double bounce) {
    return withResponse(duration, bounce >= 0 ? 1 - bounce : 1 / (1 + bounce));
}

double Spring::stiffness() const {
    return frequencyOf(*this) * frequencyOf(*this);
}

double Spring::damping() const {
    return 2 * m_dampingFraction * frequencyOf(*this);
}

MotionState Spring::at(double seconds, const MotionState& start) const {
    if (isRigid())
        return {};
    if (!(seconds > 0))
        return start;
    seconds = std::min(seconds, endOfTime);
    const double frequency = frequencyOf(*this);
    const double decayRate = m_dampingFraction * frequency;
    const double split =
        frequency * std::sqrt(std::abs(1 - m_dampingFraction)) * std::sqrt(1 + m_dampingFraction);
    const auto [cosine, sine] = m_dampingFraction <= 1
                                    ? underdamped(decayRate, split, seconds)
                                    : overdamped(decayRate, split, frequency, seconds);
    const auto [x, v] = start;
    return {cosine * x + sine * (v + decayRate * x),
            cosine * v - sine * (decayRate * v + frequency * frequency * x)};
}

double Spring::settlingTime(const MotionState& start, const Rest& rest) const {
    if (isRigid())
        return 0;
    // Its energy only ever falls, so once it is too small for both limits they hold for good.
    const double frequency = frequencyOf(*this);
    const double limit = std::min(rest.speed, frequency * rest.distance);
    const auto isResting = [&](double seconds) {
        const auto [x, v] = at(seconds, start);
        return std::hypot(frequency * x, v) <= limit;
    };
    if (isResting(0))
        return 0;
    double late = m_response;
    while (late < motion::longest && !isResting(late))
        late *= 2;
    if (late >= motion::longest)
        return motion::longest;
    double early = 0;
    while (late - early > motion::shortest) {
        const double middle = (early + late) / 2;
        (isResting(middle) ? late : early) = middle;
    }
    return late;
}

} // namespace tolvar
