#pragma once

#include "App/MenuBar/StatusMenu.h"
#include "Motion/AnimatedValue.h"
#include "Platform/Interfaces/Preferences.h"
#include "Platform/Interfaces/StatusItem.h"
#include "Platform/Interfaces/TimerService.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace tolvar {

class FocusManager;

/// What the status item shows at each moment: the castle, the countdown of a session beside it,
/// its width on the way from one to the other, and the pulse of a pause.
///
/// It follows the focus manager, which speaks once a second while a session goes on: without one
/// no timer runs.
class MenuBarItem final : public QObject {
    Q_OBJECT

public:
    /// Points before the castle and behind the label, and between the two.
    static constexpr double contentInset = 2;
    static constexpr double countdownGap = 5;
    /// Seconds that the item takes from one length to another, as an ease-out cubic.
    static constexpr double widthAnimationDuration = 0.45;
    static constexpr std::chrono::milliseconds pulseInterval{50};
    static constexpr double pulseMinAlpha = 0.3;
    static constexpr double pulseAlphaRange = 0.7;
    /// Seconds from bright to dim and back.
    static constexpr double pulseCycleDuration = 3;

    /// All outlive it.
    struct Environment {
        FocusManager& focusManager;
        Preferences& preferences;
        TimerService& timers;
        AnimationDriver& motion;
        StatusItem& item;
    };

    /// Shows the present state from now on.
    explicit MenuBarItem(const Environment& environment);
    ~MenuBarItem() override;

    /// Whether the menu offers to check for updates; not until told so.
    void setUpdateCheck(UpdateCheck updateCheck);

    /// Where the castle stands, in device pixels of the root window, if that is known.
    std::optional<QRect> anchor() const { return m_environment.item.anchor(); }

Q_SIGNALS:
    /// The item was clicked; see `StatusItem::Observer::clicked`.
    void clicked(std::optional<QPoint> claimed);
    /// An entry of the menu was chosen that is not about the session: those are obeyed already.
    void chosen(tolvar::StatusCommand command);
    /// `anchor` has another answer.
    void moved();

private:
    /// Shows the session as it is now: called on every change of it, and of the setting.
    void updateMenuBar();
    void resetMenuBarToIcon();
    void showCountdown(const QString& text);
    /// Sends the item to the length `to`, in points, unless it is there or on its way. A running
    /// animation ends where it is, and its completion is dropped.
    void animateMenuBarLength(int to, std::function<void()> completion = {});
    void startPulseTimerIfNeeded();

    void applySession();
    void hideLabel();
    int countdownLength() const;
    int widthTarget() const;
    void lengthMoved();
    void completeWidthAnimation();
    void remeasure();
    void pulse();
    void endPulse();
    void perform(StatusCommand command);
    void present();

    const Environment m_environment;
    StatusItemContent m_content;
    UpdateCheck m_updateCheck = UpdateCheck::impossible;
    /// What the length is animating, or has animated, to.
    std::optional<int> m_widthTarget;
    std::function<void()> m_widthCompletion;
    AnimatedValue m_length;
    double m_pulsePhase = 0; ///< radians
    std::unique_ptr<Timer> m_pulseTimer;
    Subscription m_itemSubscription;
    Subscription m_settingSubscription;
};

} // namespace tolvar
