#include "Motion/AnimationDriver.h"

#include <QPointer>

#include <algorithm>
#include <cmath>

namespace tolvar {
namespace {

constexpr double largestSlowFactor = 1000;
/// More than anything takes, even slowed down, and small enough for times to stay exact.
constexpr double largestStep = 1e8;
/// A frame may be stamped a little before a moment that was read already; only a clock that goes
/// back farther than this begins anew.
constexpr double jitter = 0.25;

MotionSettings usable(MotionSettings settings) {
    settings.slowFactor = std::isfinite(settings.slowFactor)
                              ? std::clamp(settings.slowFactor, 1.0, largestSlowFactor)
                              : 1;
    return settings;
}

} // namespace

AnimationDriver::AnimationDriver(FrameSource& frames, const MotionSettings& settings)
    : m_frames(frames)
    , m_settings(usable(settings)) {}

AnimationDriver::~AnimationDriver() {
    if (m_isAwake)
        m_frames.stop();
}

double AnimationDriver::now() {
    if (m_isAwake && m_visits == 0)
        advanceTo(m_frames.mediaTime());
    return m_now;
}

void AnimationDriver::setSettings(const MotionSettings& settings) {
    const auto before = m_settings;
    const auto after = usable(settings);
    if (after == before)
        return;
    now();
    m_settings = after;
    const QPointer<AnimationDriver> self(this);
    if (after.isReduced && !before.isReduced)
        visitMoving([](Animation& animation) { animation.reduce(); });
    if (self)
        Q_EMIT settingsChanged(after);
}

void AnimationDriver::add(Animation& animation) {
    if (std::find(m_moving.begin(), m_moving.end(), &animation) != m_moving.end())
        return;
    m_moving.push_back(&animation);
    if (m_isAwake)
        return;
    m_isAwake = true;
    m_mediaTime = m_frames.mediaTime();
    m_frames.start([this](double mediaTime) { frame(mediaTime); });
}

void AnimationDriver::remove(Animation& animation) {
    std::replace(m_moving.begin(), m_moving.end(), &animation, static_cast<Animation*>(nullptr));
    sleepIfIdle();
}

void AnimationDriver::frame(double mediaTime) {
    if (!m_isAwake)
        return;
    advanceTo(mediaTime);
    visitMoving([now = m_now](Animation& animation) { animation.advance(now); });
}

void AnimationDriver::advanceTo(double mediaTime) {
    const double step = mediaTime - m_mediaTime;
    if (!std::isfinite(step) || (step < 0 && step > -jitter))
        return;
    m_mediaTime = mediaTime;
    m_now += std::clamp(step, 0.0, largestStep) / m_settings.slowFactor;
}

void AnimationDriver::visitMoving(const std::function<void(Animation&)>& visit) {
    const QPointer<AnimationDriver> self(this);
    ++m_visits;
    // What is added meanwhile has its first turn in the next frame.
    const std::size_t count = m_moving.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (auto* animation = m_moving[i])
            visit(*animation);
        if (!self)
            return;
    }
    --m_visits;
    sleepIfIdle();
}

void AnimationDriver::sleepIfIdle() {
    if (m_visits > 0)
        return;
    std::erase(m_moving, nullptr);
    if (!m_moving.empty() || !m_isAwake)
        return;
    m_isAwake = false;
    m_frames.stop();
}

} // namespace tolvar
