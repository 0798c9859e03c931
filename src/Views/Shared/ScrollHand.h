#pragma once

#include "Motion/AnimatedValue.h"
#include "Platform/Interfaces/TimerService.h"
#include "Views/Shared/DragWatch.h"
#include "Views/Shared/PullGesture.h"
#include "Views/Shared/WheelReader.h"

#include <QObject>

#include <memory>
#include <optional>

class QAbstractScrollArea;
class QWheelEvent;

namespace tolvar {

/// The hand that scrolls an area up and down, by a wheel, a touchpad or a drag of the mouse, and
/// may pull it beyond its top. Lengths in points.
class ScrollHand final : public QObject {
    Q_OBJECT

public:
    enum class Hand { holds, off };

    /// `motion` and `timers` outlive the area.
    ScrollHand(QAbstractScrollArea& area, AnimationDriver& motion, TimerService& timers);

    /// A glide never pulls, nor does a wheel with notches. Touchpads that tell of no phases pull
    /// when they begin at the top, and let go with a pause.
    void takeWheel(const QWheelEvent& event);
    void setPullable(bool isPullable);
    /// How far the area is pulled down, as it is seen; it springs back by itself.
    double pull() const { return m_pull.value(); }
    /// Lets go at once, without a release.
    void rest();

Q_SIGNALS:
    void pulled(double points, tolvar::ScrollHand::Hand hand);
    void pullReleased(double points);

private:
    void takeLoosely(const QWheelEvent& event, double movement);
    void dragBy(const QPointF& way);
    void moveBy(double movement, bool canPull);
    void release();
    void breakOff();
    void springBack();

    QAbstractScrollArea& m_area;
    TimerService& m_timers;
    AnimatedValue m_pull;
    PullGesture m_gesture;
    Hand m_hand = Hand::off;
    bool m_isPullable = false;
    WheelReader m_wheel;
    /// Of a point, that the scroll bar cannot tell.
    double m_fraction = 0;
    std::unique_ptr<Timer> m_pause;
    bool m_beganAtTop = false;
    std::optional<double> m_dragged;
    DragWatch m_drag;
};

} // namespace tolvar
