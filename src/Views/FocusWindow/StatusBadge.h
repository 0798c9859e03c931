#pragma once

#include "Models/FocusSession.h"
#include "Motion/AnimatedValue.h"
#include "Views/Shared/Lamp.h"

#include <QColor>
#include <QWidget>

namespace tolvar {

/// The capsule that says whether a session is on: a lamp, which breathes during one, and a word.
/// When the status changes, the new word pushes the former one out from below.
class StatusBadge final : public QWidget {
    Q_OBJECT

public:
    /// `driver` outlives the badge.
    StatusBadge(AnimationDriver& driver, SessionStatus status, QWidget* parent = nullptr);

    void setStatus(SessionStatus status);

    /// Wide enough for every status, so that nothing around it moves.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QRectF capsule() const;
    QColor presentInk() const;
    void breatheIfFocusing();

    SessionStatus m_status;
    /// What `m_status` pushes out.
    SessionStatus m_former;
    /// 0 while the former status stands, 1 when the present one does.
    AnimatedValue m_push;
    LampLight m_lamp;
};

} // namespace tolvar
