#include "Views/Shared/HeadShake.h"

#include <QWidget>

#include <cmath>

namespace tolvar {

namespace {

CubicKeyframe swing(double to, double duration) {
    CubicKeyframe keyframe;
    keyframe.value = to;
    keyframe.duration = duration;
    return keyframe;
}

SpringKeyframe rest(double duration) {
    SpringKeyframe keyframe;
    keyframe.duration = duration;
    keyframe.spring = Spring::withDuration(0.5, 0);
    return keyframe;
}

KeyframeTrack shake() {
    return KeyframeTrack(
        0, {swing(-8, 0.06), swing(7, 0.08), swing(-5, 0.08), swing(3, 0.07), rest(0.2)});
}

} // namespace

HeadShake::HeadShake(AnimationDriver& driver, QWidget& widget)
    : m_widget(widget)
    , m_player(driver, {shake()}, [this] { place(); }) {}

HeadShake::~HeadShake() {
    moveAside(0);
}

void HeadShake::place() {
    if (m_widget.isVisible() || !m_player.isPlaying())
        moveAside(static_cast<int>(std::lround(m_player.value())));
    else
        m_player.finish();
}

/// Where its layout has moved it meanwhile, it shakes there.
void HeadShake::moveAside(int offset) {
    const bool isOurs = m_offset != 0 && m_widget.x() == m_placedAt;
    const int home = m_widget.x() - (isOurs ? m_offset : 0);
    m_offset = offset;
    m_placedAt = home + offset;
    m_widget.move(m_placedAt, m_widget.y());
}

} // namespace tolvar
