#include "App/MenuBar/MenuBarItem.h"

#include "Extensions/DurationFormatting.h"
#include "Models/AppSettings.h"
#include "Models/FocusManager.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// 1 - (1 - t)³ as a Bézier curve: x runs evenly along it.
const Eased widthChange{MenuBarItem::widthAnimationDuration, Easing(1.0 / 3, 1, 2.0 / 3, 1)};

/// A tick of the pulse, in radians.
constexpr double pulseStep = 2 * std::numbers::pi *
                             std::chrono::duration<double>(MenuBarItem::pulseInterval).count() /
                             MenuBarItem::pulseCycleDuration;

QString clockText(Seconds remaining) {
    return formattedClock(static_cast<qint64>(std::ceil(std::max(remaining, 0.0))), PadMinutes::no);
}

} // namespace

MenuBarItem::MenuBarItem(const Environment& environment)
    : m_environment(environment)
    , m_length(environment.motion, environment.item.iconOnlyLength(), [this] { lengthMoved(); }) {
    m_content.length = environment.item.iconOnlyLength();
    connect(&environment.focusManager, &FocusManager::changed, this, &MenuBarItem::updateMenuBar);
    connect(&environment.motion, &AnimationDriver::settingsChanged, this,
            &MenuBarItem::updateMenuBar);
    m_settingSubscription = environment.preferences.observe(AppSettings::showsMenuBarCountdown,
                                                            [this] { updateMenuBar(); });
    m_itemSubscription =
        environment.item.observe({.clicked = [this](auto claimed) { Q_EMIT clicked(claimed); },
                                  .chosen = [this](StatusCommand command) { perform(command); },
                                  .moved = [this] { Q_EMIT moved(); },
                                  .measuresChanged = [this] { remeasure(); }});
    updateMenuBar();
}

MenuBarItem::~MenuBarItem() = default;

void MenuBarItem::setUpdateCheck(UpdateCheck updateCheck) {
    m_updateCheck = updateCheck;
    updateMenuBar();
}

void MenuBarItem::updateMenuBar() {
    applySession();
    present();
}

void MenuBarItem::applySession() {
    const auto& session = m_environment.focusManager.currentSession();
    const Seconds remaining =
        session ? session->remainingTime(m_environment.focusManager.clock().now()) : 0;
    m_content.menu = statusMenu(session, remaining, m_updateCheck);
    m_content.isSessionActive = session && session->isActive && remaining > 0;
    if (!m_content.isSessionActive || !isShowable(remaining))
        return resetMenuBarToIcon();

    const QString text = clockText(remaining);
    m_content.accessibleLabel = u"Tolvar, %1 remaining"_s.arg(text);
    m_content.toolTip = m_content.accessibleLabel;
    if (m_environment.preferences.boolean(AppSettings::showsMenuBarCountdown))
        showCountdown(text);
    else
        animateMenuBarLength(m_environment.item.iconOnlyLength(), [this] { hideLabel(); });
    if (session->isPaused)
        startPulseTimerIfNeeded();
    else
        endPulse();
}

void MenuBarItem::resetMenuBarToIcon() {
    m_content.accessibleLabel = u"Tolvar"_s;
    m_content.toolTip = m_content.accessibleLabel;
    endPulse();
    animateMenuBarLength(m_environment.item.iconOnlyLength(), [this] { hideLabel(); });
}

void MenuBarItem::showCountdown(const QString& text) {
    m_content.label = text;
    m_content.isLabelHidden = false;
    animateMenuBarLength(countdownLength());
}

void MenuBarItem::hideLabel() {
    m_content.isLabelHidden = true;
    m_content.label.clear();
}

int MenuBarItem::countdownLength() const {
    const StatusItem& item = m_environment.item;
    return static_cast<int>(std::ceil(contentInset + item.iconWidth() + countdownGap +
                                      item.labelWidth(m_content.label) + contentInset));
}

int MenuBarItem::widthTarget() const {
    return m_widthTarget.value_or(m_environment.item.iconOnlyLength());
}

void MenuBarItem::animateMenuBarLength(int to, std::function<void()> completion) {
    if (to == widthTarget())
        return;
    m_widthTarget = to;
    m_widthCompletion = nullptr;
    // From whole points and from a standstill, wherever a former animation has got to.
    m_length.jumpTo(m_content.length);
    m_widthCompletion = std::move(completion);
    if (m_content.length == to)
        completeWidthAnimation();
    else
        m_length.animateTo(to, widthChange);
}

void MenuBarItem::lengthMoved() {
    m_content.length = static_cast<int>(std::lround(m_length.value()));
    if (!m_length.isMoving())
        completeWidthAnimation();
    present();
}

void MenuBarItem::completeWidthAnimation() {
    if (const auto completion = std::exchange(m_widthCompletion, nullptr))
        completion();
}

/// Nobody pushed the item: another panel has other measures, and nothing is to move for that.
void MenuBarItem::remeasure() {
    const bool isCollapsing = m_content.isLabelHidden || m_widthCompletion;
    const int length = isCollapsing ? m_environment.item.iconOnlyLength() : countdownLength();
    m_widthTarget = length;
    m_length.jumpTo(length);
    m_content.length = length;
    updateMenuBar();
}

/// With reduced motion the item stands at full opacity.
void MenuBarItem::startPulseTimerIfNeeded() {
    if (m_environment.motion.settings().isReduced)
        endPulse();
    else if (!m_pulseTimer)
        m_pulseTimer = m_environment.timers.repeat(pulseInterval, [this] { pulse(); });
}

void MenuBarItem::pulse() {
    m_pulsePhase += pulseStep;
    m_content.opacity = pulseMinAlpha + pulseAlphaRange * (0.5 + 0.5 * std::sin(m_pulsePhase));
    present();
}

void MenuBarItem::endPulse() {
    m_pulseTimer.reset();
    m_pulsePhase = 0;
    m_content.opacity = 1;
}

void MenuBarItem::perform(StatusCommand command) {
    FocusManager& manager = m_environment.focusManager;
    if (command == StatusCommand::stop)
        return manager.stopSession();
    if (command != StatusCommand::pauseOrResume)
        return Q_EMIT chosen(command);
    if (manager.currentSession() && manager.currentSession()->isPaused)
        manager.resumeSession();
    else
        manager.pauseSession();
}

void MenuBarItem::present() {
    m_environment.item.show(m_content);
}

} // namespace tolvar
