#include "Models/CompletionNotification.h"

#include "Extensions/DurationFormatting.h"
#include "Models/AppSettings.h"
#include "Models/FocusSession.h"

#include <cmath>
#include <iostream>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// A stored session may be longer than can be shown; telling of its end is no reason to crash.
QString durationText(Seconds duration) {
    constexpr Seconds extreme = 9e18;
    return formattedCompact(isShowable(duration) ? duration : std::copysign(extreme, duration));
}

/// Flushed, for a person who reads along.
void printLine(const QString& text) {
    std::cout << text.toStdString() << std::endl;
}

} // namespace

void CompletionNotification::requestNotificationPermission() const {
    if (!m_environment.isProperApplication)
        return;
    m_environment.notifications.requestAuthorization([](const auto& authorization) {
        if (authorization.error)
            printLine(u"Notification permission error: "_s + *authorization.error);
        else if (!authorization.granted)
            printLine(u"Notification permission denied"_s);
    });
}

void CompletionNotification::showCompletionNotification(const FocusSession& session) const {
    if (!m_environment.isProperApplication)
        return;
    const NotificationContent content{.title = u"Focus session complete"_s,
                                      .body = completionNotificationBody(session),
                                      .sound = completionNotificationSound()};
    const auto identifier = session.id.toString(QUuid::WithoutBraces).toUpper();
    m_environment.notifications.add(identifier, content, [](const std::optional<QString>& error) {
        if (error)
            printLine(u"Failed to deliver completion notification: "_s + *error);
    });
}

NotificationSound CompletionNotification::completionNotificationSound() const {
    const bool wantsChime = m_environment.preferences.boolean(AppSettings::sessionEndChimeEnabled);
    const bool playsOwnChime = m_environment.sound.isLoaded(InterfaceSound::Sound::sessionEnd);
    return wantsChime && !playsOwnChime ? NotificationSound::systemDefault
                                        : NotificationSound::none;
}

QString completionNotificationBody(const FocusSession& session) {
    const auto duration = durationText(session.duration);
    if (session.goal.isEmpty())
        return u"You focused for "_s + duration + u'.';
    return session.goal + u" \u2014 "_s + duration + u" of focus."_s;
}

} // namespace tolvar
