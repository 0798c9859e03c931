#pragma once

#include <QWidget>

class QAbstractButton;

namespace tolvar::gallery {

/// The states that a control can be shown in without a hand at it.
enum class State { rest, hovered, pressed, latched, disabled, focused };

inline constexpr State allStates[] = {State::rest,    State::hovered,  State::pressed,
                                      State::latched, State::disabled, State::focused};

QString nameOf(State state);

/// Brings the control into the state, as pointer and keyboard would.
void bringInto(QWidget& control, State state);

/// A control with the ring around it that the keyboard's focus draws.
class Ringed final : public QWidget {
    Q_OBJECT

public:
    explicit Ringed(QWidget* control, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* m_control;
};

} // namespace tolvar::gallery
