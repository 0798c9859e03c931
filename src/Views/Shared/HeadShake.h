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
    ~HeadShake();
    Q_DISABLE_COPY_MOVE(HeadShake)

    /// The first call only takes note of the counter.
    void setCounter(int counter) { m_player.setCounter(counter); }

private:
    void place();
    void moveAside(int offset);

    QWidget& m_widget;
    /// How far the widget stands aside of where its layout put it, and where it was put so.
    int m_offset = 0;
    int m_placedAt = 0;
    KeyframePlayer m_player;
};

} // namespace tolvar
