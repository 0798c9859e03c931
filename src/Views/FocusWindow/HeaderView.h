#pragma once

#include "Models/FocusSession.h"

#include <QWidget>

namespace tolvar {

class AnimationDriver;
class StatusBadge;

/// The top of the window: the castle at one end, whether a session is on at the other.
class HeaderView final : public QWidget {
    Q_OBJECT

public:
    /// `driver` outlives the header.
    HeaderView(AnimationDriver& driver, SessionStatus status, QWidget* parent = nullptr);

    void setStatus(SessionStatus status);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    StatusBadge* m_badge;
};

} // namespace tolvar
