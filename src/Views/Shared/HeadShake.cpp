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

void HeadShake::place() {
    const int offset = static_cast<int>(std::lround(m_player.value()));
    m_widget.move(m_widget.x() + offset - m_offset, m_widget.y());
    m_offset = offset;
}

} // namespace tolvar
