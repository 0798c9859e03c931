#pragma once

#include "Extensions/Date.h"
#include "Views/Shared/Sheet.h"

#include <QString>

namespace tolvar {

class InstrumentField;
class KeyButton;

/// Asks what a session is for that is otherwise planned: by a preset, or by an earlier session.
class GoalInputSheet final : public Sheet {
    Q_OBJECT

public:
    /// Of the card, in points.
    static constexpr int fixedWidth = 340;

    GoalInputSheet(const ControlContext& context, QWidget& window);

    /// Rises with an empty goal, which has the keyboard. The title is cut where it is too long.
    void ask(const QString& title, Seconds duration);

Q_SIGNALS:
    /// The user has given a goal, here without surrounding white space; the sheet sinks. Cancelled,
    /// it only sinks.
    void started(const QString& goal);

private:
    class Heading;

    QWidget* makeContent(const ControlContext& context);
    QWidget* makeKeys(const ControlContext& context);
    QString goal() const;
    void start();

    Heading* m_heading = nullptr;
    InstrumentField* m_goal = nullptr;
    KeyButton* m_start = nullptr;
};

} // namespace tolvar
