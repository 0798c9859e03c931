#include "Views/Shared/ScrollHand.h"

#include "Views/Theme/Instrument.h"

#include <QAbstractScrollArea>
#include <QPointingDevice>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvar {

namespace {

using Phase = ScrollStep::Phase;

bool isTouchpad(const QWheelEvent& event) {
    const auto* device = event.pointingDevice();
    return device && device->type() == QInputDevice::DeviceType::TouchPad;
}

} // namespace

ScrollHand::ScrollHand(QAbstractScrollArea& area, AnimationDriver& motion, TimerService& timers)
    : QObject(&area)
    , m_area(area)
    , m_timers(timers)
    , m_pull(motion, 0, [this] { Q_EMIT pulled(std::max(0.0, pull()), m_hand); })
    , m_drag(*area.viewport(), Qt::Vertical,
             {.moved = [this](const QPointF& way) { dragBy(way); },
              .ended = [this] { release(); },
              .cancelled = [this] { breakOff(); }}) {}

void ScrollHand::setPullable(bool isPullable) {
    m_isPullable = isPullable;
    if (!isPullable)
        rest();
}

void ScrollHand::takeWheel(const QWheelEvent& event) {
    const ScrollStep step = m_wheel.read(event);
    switch (step.phase) {
    case Phase::none:
        return takeLoosely(event, step.delta.y());
    case Phase::began:
    case Phase::changed:
        return moveBy(step.delta.y(), m_isPullable);
    case Phase::cancelled:
        return breakOff();
    case Phase::ended:
        return release();
    case Phase::momentum:
    case Phase::momentumEnded:
        release();
        return moveBy(step.delta.y(), false);
    }
}

void ScrollHand::takeLoosely(const QWheelEvent& event, double movement) {
    if (!m_pause)
        m_beganAtTop = m_area.verticalScrollBar()->value() == 0;
    m_pause = m_timers.once(ScrollSwipeTracker::pause, [this] {
        m_pause.reset();
        release();
    });
    moveBy(movement, m_isPullable && m_beganAtTop && isTouchpad(event));
}

/// The points that were needed to see which way the drag goes are not made up for; those that a
/// quick hand has gone beyond them by the time it is first told of are.
void ScrollHand::dragBy(const QPointF& way) {
    const double needed = std::clamp(way.y(), -DragWatch::leastDistance, DragWatch::leastDistance);
    const double before = std::exchange(m_dragged, way.y()).value_or(needed);
    moveBy(way.y() - before, m_isPullable);
}

void ScrollHand::moveBy(double movement, bool canPull) {
    QScrollBar& bar = *m_area.verticalScrollBar();
    const double position = m_gesture.take(movement, bar.value() + m_fraction, canPull);
    const double reached = std::clamp(position, 0.0, static_cast<double>(bar.maximum()));
    bar.setValue(static_cast<int>(std::floor(reached)));
    m_fraction = reached - std::floor(reached);
    if (!canPull)
        return;
    m_hand = Hand::holds;
    m_pull.jumpTo(m_gesture.pull());
}

void ScrollHand::release() {
    m_dragged.reset();
    const double reached = pull();
    if (std::exchange(m_hand, Hand::off) == Hand::off || reached <= 0)
        return;
    springBack();
    Q_EMIT pullReleased(reached);
}

void ScrollHand::breakOff() {
    m_dragged.reset();
    m_hand = Hand::off;
    springBack();
}

void ScrollHand::springBack() {
    m_gesture.release();
    m_pull.animateTo(0, Instrument::Motion::swipeSettle);
}

void ScrollHand::rest() {
    m_pause.reset();
    m_drag.cancel();
    breakOff();
    m_pull.finish();
}

} // namespace tolvar
