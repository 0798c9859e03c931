#include "Motion/Keyframes.h"

#include "Motion/MotionLimits.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tolvar {
namespace {

double valueOf(const Keyframe& keyframe) {
    return std::visit([](const auto& kind) { return kind.value; }, keyframe);
}

std::optional<double> usable(const std::optional<double>& velocity) {
    return velocity && motion::isUsableValue(*velocity) ? velocity : std::nullopt;
}

double durationOf(const CubicKeyframe& cubic, const MotionState&) {
    return motion::usableSeconds(cubic.duration);
}

double durationOf(const LinearKeyframe& linear, const MotionState&) {
    return motion::usableSeconds(linear.duration);
}

double durationOf(const MoveKeyframe&, const MotionState&) {
    return 0;
}

double durationOf(const SpringKeyframe& spring, const MotionState& from) {
    if (spring.duration)
        return motion::usableSeconds(*spring.duration);
    return spring.spring.settlingTime({from.value - spring.value, from.velocity}, {});
}

std::optional<double> givenStartVelocity(const Keyframe& keyframe) {
    if (const auto* cubic = std::get_if<CubicKeyframe>(&keyframe))
        return usable(cubic->startVelocity);
    if (const auto* spring = std::get_if<SpringKeyframe>(&keyframe))
        return usable(spring->startVelocity);
    return std::nullopt;
}

/// The velocity at the end of a keyframe that is `duration` long, as far as a cubic one wants it.
double endVelocityOf(const Keyframe& keyframe, double startValue, double duration,
                     const Keyframe* next) {
    const auto* cubic = std::get_if<CubicKeyframe>(&keyframe);
    if (!cubic)
        return 0;
    if (const auto given = usable(cubic->endVelocity))
        return *given;
    const auto* nextCubic = next ? std::get_if<CubicKeyframe>(next) : nullptr;
    if (!nextCubic)
        return 0;
    if (const auto given = usable(nextCubic->startVelocity))
        return *given;
    const double nextDuration = motion::usableSeconds(nextCubic->duration);
    return nextDuration > 0 ? (nextCubic->value - startValue) / (duration + nextDuration) : 0;
}

/// The Hermite polynomial between two states that are `duration` apart.
MotionState cubicAt(double seconds, double duration, const MotionState& from,
                    const MotionState& to) {
    const double time = seconds / duration;
    const double left = 1 - time;
    const double distance = to.value - from.value;
    return {from.value + distance * time * time * (3 - 2 * time) +
                from.velocity * seconds * left * left - to.velocity * seconds * time * left,
            distance * 6 * time * left / duration + from.velocity * left * (1 - 3 * time) +
                to.velocity * time * (3 * time - 2)};
}

MotionState linearAt(double seconds, double duration, double from, double to) {
    return {from + (to - from) * seconds / duration, (to - from) / duration};
}

} // namespace

KeyframeTrack::KeyframeTrack(double start, std::vector<Keyframe> keyframes)
    : m_start(motion::isUsableValue(start) ? start : 0)
    , m_end(m_start) {
    std::erase_if(keyframes, [](const Keyframe& keyframe) {
        return !motion::isUsableValue(valueOf(keyframe));
    });
    MotionState state{m_start, 0};
    for (auto keyframe = keyframes.begin(); keyframe != keyframes.end(); ++keyframe) {
        const auto next = std::next(keyframe);
        state = append(*keyframe, state, next == keyframes.end() ? nullptr : &*next);
    }
}

MotionState KeyframeTrack::append(const Keyframe& keyframe, MotionState from,
                                  const Keyframe* next) {
    from.velocity = givenStartVelocity(keyframe).value_or(from.velocity);
    const double duration =
        std::visit([&](const auto& kind) { return durationOf(kind, from); }, keyframe);
    m_end = valueOf(keyframe);
    if (duration == 0)
        return {m_end, 0};
    const Piece piece{m_duration, duration, from,
                      endVelocityOf(keyframe, from.value, duration, next), keyframe};
    m_pieces.push_back(piece);
    m_duration += duration;
    return piece.at(duration);
}

MotionState KeyframeTrack::at(double seconds) const {
    if (seconds >= m_duration)
        return {m_end, 0};
    if (!(seconds >= 0))
        return {m_start, 0};
    const auto after =
        std::upper_bound(m_pieces.begin(), m_pieces.end(), seconds,
                         [](double moment, const Piece& piece) { return moment < piece.begins; });
    const auto& piece = *std::prev(after);
    return piece.at(seconds - piece.begins);
}

MotionState KeyframeTrack::Piece::at(double seconds) const {
    const double to = valueOf(keyframe);
    if (const auto* spring = std::get_if<SpringKeyframe>(&keyframe)) {
        const auto [x, velocity] = spring->spring.at(seconds, {from.value - to, from.velocity});
        return {to + x, velocity};
    }
    if (std::holds_alternative<CubicKeyframe>(keyframe))
        return cubicAt(seconds, duration, from, {to, endVelocity});
    return linearAt(seconds, duration, from.value, to);
}

} // namespace tolvar
