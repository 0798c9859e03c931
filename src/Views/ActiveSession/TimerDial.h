#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/ActiveSession/DialReading.h"
#include "Views/ActiveSession/RollingClock.h"
#include "Views/ActiveSession/SpokenText.h"

#include <QPixmap>

#include <optional>

namespace tolvar {

/// The round dial: the time left in rolling digits, and around it an arc of the time that has gone.
/// While a session is paused the arc is dim and breathes. Nothing of it moves while it is hidden.
///
/// The widget is larger than the dial by `DialMeasures::overhang` on every side.
class TimerDial final : public SpokenText {
    Q_OBJECT

public:
    /// `driver` outlives the dial.
    explicit TimerDial(AnimationDriver& driver, QWidget* parent = nullptr);

    const DialReading& reading() const { return m_reading; }
    void setReading(const DialReading& reading);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// A picture with what it was drawn for, and how it was last seen.
    struct Drawn {
        QPixmap picture;
        double progress = -1;
        double scale = 0;
        double opacity = 1;
    };

    void moveClock(int secondsBefore);
    void moveArc();
    void movePause();
    void breathe();
    void arcMoved();
    void arcDimmed();
    double arcOpacity() const;
    double shownProgress() const;
    void drawLayers();
    QPointF clockCenter() const;
    QRectF captionBox() const;
    void paintCaption(QPainter& painter) const;

    AnimationDriver& m_driver;
    DialReading m_reading;
    RollingClock m_clock;
    AnimatedValue m_progress;
    AnimatedValue m_pause;
    AnimatedValue m_breath;
    /// When the first sweep begins, in the driver's time; none before the dial has appeared.
    std::optional<double> m_sweepBegins;
    QPixmap m_plate;
    Drawn m_arc;
};

} // namespace tolvar
