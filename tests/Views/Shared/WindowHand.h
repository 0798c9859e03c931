#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>
#include <QtTest/qtestspontaneevent.h>

namespace tolvar::test {

/// A hand at mouse and touchpad whose events take the way of the real ones, through the window.
class WindowHand {
public:
    explicit WindowHand(QWidget& window)
        : m_window(window) {}

    /// The point of the window that a point of the widget is at.
    QPointF at(const QWidget& widget, const QPointF& point) const {
        return widget.mapTo(&m_window, point);
    }
    QPointF middleOf(const QWidget& widget) const {
        return at(widget, QRectF(widget.rect()).center());
    }

    void press(const QPointF& point, Qt::MouseButton button = Qt::LeftButton) {
        m_point = point;
        m_buttons |= button;
        send(QEvent::MouseButtonPress, button);
    }
    void moveTo(const QPointF& point) {
        m_point = point;
        send(QEvent::MouseMove, Qt::NoButton);
    }
    void moveBy(const QPointF& way) { moveTo(m_point + way); }
    void release(Qt::MouseButton button = Qt::LeftButton) {
        m_buttons &= ~Qt::MouseButtons(button);
        send(QEvent::MouseButtonRelease, button);
    }
    void click(const QPointF& point) {
        press(point);
        release();
    }
    /// The window never hears of the release.
    void loseTheMouse() { m_buttons = Qt::NoButton; }

    struct Scroll {
        QPoint pixels;
        Qt::ScrollPhase phase = Qt::ScrollUpdate;
        bool isNatural = true;
        QPoint angle = {};
        Qt::KeyboardModifiers modifiers = Qt::NoModifier;
        const QPointingDevice* device = QPointingDevice::primaryPointingDevice();
    };
    void scroll(const QPointF& point, const Scroll& scroll) {
        QWheelEvent event(point, m_window.mapToGlobal(point), scroll.pixels, scroll.angle,
                          m_buttons, scroll.modifiers, scroll.phase, scroll.isNatural,
                          Qt::MouseEventNotSynthesized, scroll.device);
        deliver(event);
    }
    /// A whole swipe of a touchpad, step by step.
    void swipe(const QPointF& point, const QPoint& step, int steps) {
        scroll(point, {.pixels = {}, .phase = Qt::ScrollBegin});
        for (int i = 0; i < steps; ++i)
            scroll(point, {.pixels = step});
        scroll(point, {.pixels = {}, .phase = Qt::ScrollEnd});
    }

private:
    void send(QEvent::Type type, Qt::MouseButton button) {
        const QPointF onScreen = m_window.mapToGlobal(m_point);
        QMouseEvent event(type, m_point, m_point, onScreen, button, m_buttons, Qt::NoModifier);
        deliver(event);
    }

    /// `sendEvent` would make it an event that the program has made, which is not handed on to
    /// parents.
    void deliver(QEvent& event) {
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(m_window.windowHandle(), &event);
    }

    QWidget& m_window;
    QPointF m_point;
    Qt::MouseButtons m_buttons = Qt::NoButton;
};

} // namespace tolvar::test
