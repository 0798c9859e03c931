#pragma once

#include "Motion/AnimatedValue.h"
#include "Motion/KeyframePlayer.h"
#include "Views/Theme/Instrument.h"

#include <QWidget>

#include <functional>

class QPainter;

namespace tolvar {

/// A lamp as it stands at one moment, for those who draw one within a larger picture.
class LampLight {
public:
    /// `driver` outlives the light; `changed` is called at every change of what `paint` draws.
    LampLight(AnimationDriver& driver, std::function<void()> changed);
    ~LampLight();
    Q_DISABLE_COPY_MOVE(LampLight)

    bool isOn() const { return m_isOn; }
    /// The filament takes a moment, and the lamp blinks once.
    void setOn(bool isOn);
    void setColor(const QColor& color);
    /// Breathing pulses slowly between full and less than half its light, for ever, unless motion
    /// is reduced: then it stays at full light.
    void setBreathing(bool breathes);
    /// Stands still at once, at full light.
    void rest();

    /// Draws the lamp, `size` points wide, and the glow around it.
    void paint(QPainter& painter, const QPointF& center, double size) const;
    /// How far blink and glow reach beyond the rim of a lamp of this size.
    static double reach(double size);

private:
    void updateBreathing();

    bool m_isOn = false;
    bool m_breathes = false;
    QColor m_color = Instrument::Palette::amber;
    std::function<void()> m_changed;
    AnimatedValue m_filament;
    AnimatedValue m_dim;
    KeyframePlayer m_blink;
    QMetaObject::Connection m_settingsConnection;
};

/// A lamp by itself. The widget is larger than the lamp by the reach of its glow.
class Lamp final : public QWidget {
    Q_OBJECT

public:
    static constexpr double standardSize = 6;

    explicit Lamp(AnimationDriver& driver, double size = standardSize, QWidget* parent = nullptr);

    /// Blinks only where it can be seen.
    void setOn(bool isOn);
    void setColor(const QColor& color) { m_light.setColor(color); }
    /// Breathes while it can be seen.
    void setBreathing(bool breathes);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    const double m_size;
    bool m_breathes = false;
    LampLight m_light;
};

} // namespace tolvar
