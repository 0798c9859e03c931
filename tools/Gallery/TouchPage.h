#pragma once

#include "Motion/AnimationDriver.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Shared/HeadShake.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace tolvar {
class InstrumentField;
class KeyButton;
class Lamp;
} // namespace tolvar

namespace tolvar::gallery {

/// Controls that do something when they are touched: keys that latch one another, one that blinks a
/// lamp, a field that shakes its head, a lamp that breathes.
class TouchPage final : public QWidget {
    Q_OBJECT

public:
    explicit TouchPage(const ControlContext& context);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeCastles();
    QWidget* makeGoal();
    QWidget* makeDurations();
    QWidget* makeLamps();
    QWidget* makeStart();
    void choose(std::size_t duration);
    void start();

    const ControlContext m_context;
    std::vector<KeyButton*> m_durations;
    InstrumentField* m_goal = nullptr;
    Lamp* m_lamp = nullptr;
    int m_refusals = 0;
    std::unique_ptr<HeadShake> m_shake;
};

} // namespace tolvar::gallery
