#include "Views/Shared/DragWatch.h"

#include "Views/Shared/WindowPoint.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

#include <cmath>
#include <utility>

namespace tolvar {

namespace {

/// Where nothing is.
constexpr QPointF farAway{-1e5, -1e5};

/// The same event, but nowhere near anything.
QMouseEvent fromFarAway(const QMouseEvent& event) {
    return {event.type(),   farAway,         farAway,           farAway,
            event.button(), event.buttons(), event.modifiers(), event.pointingDevice()};
}

} // namespace

DragWatch::DragWatch(QWidget& area, Qt::Orientation axis, Callbacks callbacks)
    : m_area(area)
    , m_axis(axis)
    , m_callbacks(std::move(callbacks)) {
    area.installEventFilter(this);
    if (area.isVisible())
        watch(area.window()->windowHandle());
}

/// The window gets the mouse before any widget of it does.
void DragWatch::watch(QWindow* window) {
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (window)
        window->installEventFilter(this);
}

bool DragWatch::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_window)
        return takeWindowEvent(*event);
    if (event->type() == QEvent::Show) {
        watch(m_area.window()->windowHandle());
    } else if (event->type() == QEvent::Hide) {
        cancel();
        m_stage = Stage::idle;
        watch(nullptr);
    }
    return false;
}

bool DragWatch::takeWindowEvent(QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return press(static_cast<QMouseEvent&>(event));
    case QEvent::MouseMove:
        return move(static_cast<QMouseEvent&>(event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent&>(event));
    case QEvent::FocusOut:
        cancel();
        return false;
    default:
        return false;
    }
}

/// Another button means nothing but that while a drag goes on.
bool DragWatch::press(const QMouseEvent& event) {
    if (event.buttons() != Qt::LeftButton) {
        cancel();
        return m_stage == Stage::brokenOff;
    }
    m_pressed = widgetAt(m_area, event.position());
    m_stage = m_pressed ? Stage::pressed : Stage::idle;
    m_start = event.position();
    return false;
}

bool DragWatch::move(const QMouseEvent& event) {
    if (!event.buttons().testFlag(Qt::LeftButton)) {
        cancel();
        m_stage = Stage::idle;
    }
    const QPointF way = event.position() - m_start;
    if (m_stage == Stage::pressed && std::hypot(way.x(), way.y()) >= leastDistance)
        decide(way);
    if (m_stage == Stage::dragging)
        m_callbacks.moved(way);
    return m_stage == Stage::dragging || m_stage == Stage::brokenOff;
}

void DragWatch::decide(const QPointF& way) {
    const bool isSideways = std::abs(way.x()) > std::abs(way.y());
    if (isSideways != (m_axis == Qt::Horizontal)) {
        m_stage = Stage::idle;
        return;
    }
    m_stage = Stage::dragging;
    if (!m_pressed)
        return;
    QMouseEvent away(QEvent::MouseMove, farAway, farAway, farAway, Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(m_pressed, &away);
}

/// What it began on is told that the hand let go elsewhere.
bool DragWatch::release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return m_stage == Stage::dragging || m_stage == Stage::brokenOff;
    const Stage stage = std::exchange(m_stage, Stage::idle);
    if (stage != Stage::dragging && stage != Stage::brokenOff)
        return false;
    const QPointer<DragWatch> guard(this);
    QMouseEvent away = fromFarAway(event);
    QCoreApplication::sendEvent(m_window, &away);
    if (guard && stage == Stage::dragging)
        m_callbacks.ended();
    return true;
}

void DragWatch::cancel() {
    const Stage stage = m_stage;
    m_stage =
        stage == Stage::dragging || stage == Stage::brokenOff ? Stage::brokenOff : Stage::idle;
    if (stage == Stage::dragging)
        m_callbacks.cancelled();
}

} // namespace tolvar
