#pragma once

#include "Motion/KeyframePlayer.h"

class QWidget;

namespace tolvar {

class AnimationDriver;

/// Shakes a widget's head at what was asked of it, once for each increase of a counter.
class HeadShake {
public:
    /// Both outlive it.
    HeadShake(AnimationDriver& driver, QWidget& widget);

    void setCounter(int counter) { m_player.setCounter(counter); }

private:
    void place();

    QWidget& m_widget;
    /// How far the widget stands aside of where its layout put it.
    int m_offset = 0;
    KeyframePlayer m_player;
};

} // namespace tolvar
