#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/ActiveSession/SpokenText.h"

namespace tolvar {

/// The line above the goal: "You're focusing on", or while the session is paused "You were focusing
/// on". One fades before the other comes.
class GoalCaption final : public SpokenText {
    Q_OBJECT

public:
    GoalCaption(AnimationDriver& driver, QWidget* parent);

    void setPaused(bool isPaused);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    AnimatedValue m_pause;
};

/// What the user is focusing on: centred, at most three lines.
class GoalText final : public SpokenText {
    Q_OBJECT

public:
    explicit GoalText(QWidget* parent);

    const QString& goal() const { return m_goal; }
    void setGoal(const QString& goal);

    bool hasHeightForWidth() const override { return true; }
    /// At least that of one line, also without a goal.
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont textFont() const;

    QString m_goal;
};

} // namespace tolvar
