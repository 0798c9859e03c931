#pragma once

#include "Extensions/Date.h"
#include "Views/Shared/ControlContext.h"

#include <QWidget>

namespace tolvar {

class ControlButton;
class ExtendFloater;
class FocusManager;
class GoalCaption;
class GoalText;
class PauseKey;
class TimerDial;

/// What the window shows while a session is active: what the user is focusing on, the time left on
/// a dial, and the keys that pause or resume, add five minutes, and stop. Without a session it is
/// empty.
///
/// It reads the session anew at each `FocusManager::changed`, which comes behind
/// `currentSessionChanged`: who wants to keep a picture of the session that has just ended takes it
/// there.
class ActiveSessionView final : public QWidget {
    Q_OBJECT

public:
    /// What the extend key adds.
    static constexpr Seconds extension = 300;

    /// `manager` outlives the view.
    ActiveSessionView(const ControlContext& context, FocusManager& manager,
                      QWidget* parent = nullptr);

    /// How often the session was extended here.
    int extendCount() const { return m_extendCount; }

    /// Puts the keyboard on the first key that can be pressed.
    void takeKeyboard(Qt::FocusReason reason);

    QSize sizeHint() const override;
    /// With the keys close to the dial.
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    ControlButton* makeExtendKey();
    ControlButton* makeStopKey();
    void pauseOrResume();
    void extend();
    void stop();
    void refresh();
    void showParts(bool isShown);
    void place();
    void placeKeys();

    const ControlContext m_context;
    FocusManager& m_manager;
    int m_extendCount = 0;
    GoalCaption* m_caption;
    GoalText* m_goal;
    TimerDial* m_dial;
    PauseKey* m_pauseKey;
    ControlButton* m_extendKey;
    ControlButton* m_stopKey;
    ExtendFloater* m_floater;
};

} // namespace tolvar
