#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <functional>

class QMouseEvent;

namespace tolvar {

/// Watches for drags of the left mouse button, or a finger, that begin somewhere in a widget and go
/// its way, whatever in the widget they begin on. Which way a drag goes is decided once, when it
/// has gone 12 points; from then on what it began on is left alone and is not clicked at its end.
class DragWatch final : public QObject {
    Q_OBJECT

public:
    static constexpr double leastDistance = 12;

    struct Callbacks {
        /// From where the mouse was pressed, in points.
        std::function<void(const QPointF& translation)> moved;
        /// The hand let go.
        std::function<void()> ended;
        /// Another button was pressed, the mouse went to somebody else, or the widget hid.
        std::function<void()> cancelled;
    };

    DragWatch(QWidget& area, Qt::Orientation axis, Callbacks callbacks);

    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Whether a drag is going on.
    bool isDragging() const { return m_stage == Stage::dragging; }
    /// Breaks off what is going on, as another button does.
    void cancel();

private:
    enum class Stage { idle, pressed, dragging, brokenOff };

    void watch(QWindow* window);
    bool takeWindowEvent(QEvent& event);
    bool press(const QMouseEvent& event);
    bool move(const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    void decide(const QPointF& way);

    QWidget& m_area;
    const Qt::Orientation m_axis;
    const Callbacks m_callbacks;
    QPointer<QWindow> m_window;
    Stage m_stage = Stage::idle;
    QPointer<QWidget> m_pressed;
    QPointF m_start;
};

} // namespace tolvar
