#include "Platform/Linux/DBus/FreedesktopNotificationCenter.h"

#include "NotificationsInterface.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

const QString serviceName = u"org.freedesktop.Notifications"_s;
const QString objectPath = u"/org/freedesktop/Notifications"_s;
const QString defaultAction = u"default"_s;
/// Desktop Notifications Specification, "Urgency Levels".
constexpr uchar normalUrgency = 1;
constexpr int serverDecidesExpiry = -1;

QString description(const QDBusError& error) {
    return error.message().isEmpty() ? error.name() : error.message();
}

bool isDenial(const QDBusError& error) {
    return error.type() == QDBusError::AccessDenied ||
           error.name() == u"org.freedesktop.DBus.Error.AuthFailed"_s;
}

NotificationAuthorization authorization(const QDBusPendingCall& call) {
    if (!call.isError())
        return {.granted = true, .error = std::nullopt};
    if (isDenial(call.error()))
        return {.granted = false, .error = std::nullopt};
    return {.granted = false, .error = description(call.error())};
}

} // namespace

FreedesktopNotificationCenter::FreedesktopNotificationCenter(const QDBusConnection& bus,
                                                             Sender sender,
                                                             std::chrono::milliseconds patience)
    : m_sender(std::move(sender))
    , m_server(std::make_unique<OrgFreedesktopNotificationsInterface>(serviceName, objectPath, bus))
    , m_serverWatcher(serviceName, bus) {
    using Server = OrgFreedesktopNotificationsInterface;
    m_server->setTimeout(static_cast<int>(patience.count()));
    connect(m_server.get(), &Server::ActionInvoked, this,
            &FreedesktopNotificationCenter::actionInvoked);
    connect(m_server.get(), &Server::NotificationClosed, this,
            &FreedesktopNotificationCenter::notificationClosed);
    connect(&m_serverWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            &FreedesktopNotificationCenter::forgetServer);
}

FreedesktopNotificationCenter::~FreedesktopNotificationCenter() = default;

void FreedesktopNotificationCenter::requestAuthorization(
    std::function<void(const NotificationAuthorization&)> answered) {
    whenFinished(m_server->GetServerInformation(),
                 [answered = std::move(answered)](const QDBusPendingCall& call) {
                     answered(authorization(call));
                 });
}

void FreedesktopNotificationCenter::add(const QString& identifier,
                                        const NotificationContent& content,
                                        std::function<void(std::optional<QString>)> delivered) {
    m_requests.push_back({identifier, content, std::move(delivered)});
    if (m_requests.size() == 1)
        postNext();
}

Subscription
FreedesktopNotificationCenter::observeOpened(std::function<void(const QString&)> opened) {
    const int id = m_nextObserver++;
    m_openedObservers->emplace(id, std::move(opened));
    return Subscription([observers = std::weak_ptr(m_openedObservers), id] {
        if (const auto alive = observers.lock())
            alive->erase(id);
    });
}

/// The server is asked anew each time whether it reads markup: another one may have taken over.
void FreedesktopNotificationCenter::postNext() {
    whenFinished(m_server->GetCapabilities(), [this](const QDBusPendingCall& call) {
        const QDBusPendingReply<QStringList> capabilities = call;
        if (capabilities.isError())
            finishCurrent(description(capabilities.error()));
        else
            post(capabilities.value().contains(u"body-markup"_s));
    });
}

void FreedesktopNotificationCenter::post(bool serverReadsMarkup) {
    const auto& [identifier, content, delivered] = m_requests.front();
    const auto known = m_numbers.find(identifier);
    const uint replaced = known != m_numbers.end() ? known->second : 0;
    const QString body = serverReadsMarkup ? content.body.toHtmlEscaped() : content.body;
    const QStringList actions = {defaultAction, u"Open "_s + m_sender.name};
    whenFinished(m_server->Notify(m_sender.name, replaced, m_sender.desktopEntry, content.title,
                                  body, actions, hints(content.sound), serverDecidesExpiry),
                 [this](const QDBusPendingCall& call) {
                     const QDBusPendingReply<uint> number = call;
                     if (number.isError())
                         return finishCurrent(description(number.error()));
                     m_numbers.insert_or_assign(m_requests.front().identifier, number.value());
                     finishCurrent(std::nullopt);
                 });
}

/// The callback may destroy this object.
void FreedesktopNotificationCenter::finishCurrent(const std::optional<QString>& error) {
    const auto delivered = std::move(m_requests.front().delivered);
    m_requests.pop_front();
    if (!m_requests.empty())
        postNext();
    delivered(error);
}

QVariantMap FreedesktopNotificationCenter::hints(NotificationSound sound) const {
    QVariantMap hints = {
        {u"desktop-entry"_s, m_sender.desktopEntry},
        {u"urgency"_s, QVariant::fromValue(normalUrgency)},
    };
    if (sound == NotificationSound::none)
        hints.insert(u"suppress-sound"_s, true);
    else // The freedesktop sound names: "a long running operation has finished"
        hints.insert(u"sound-name"_s, u"complete"_s);
    return hints;
}

void FreedesktopNotificationCenter::actionInvoked(uint number, const QString& action) {
    const auto ours = std::find_if(m_numbers.begin(), m_numbers.end(),
                                   [&](const auto& entry) { return entry.second == number; });
    if (ours == m_numbers.end() || action != defaultAction)
        return;
    const QString identifier = ours->first;
    const OpenedObservers observers = *m_openedObservers;
    for (const auto& [id, opened] : observers)
        opened(identifier);
}

void FreedesktopNotificationCenter::notificationClosed(uint number) {
    std::erase_if(m_numbers, [&](const auto& entry) { return entry.second == number; });
}

/// Another server counts anew: an old number might name somebody else's notification.
void FreedesktopNotificationCenter::forgetServer() {
    m_numbers.clear();
}

void FreedesktopNotificationCenter::whenFinished(
    const QDBusPendingCall& call, std::function<void(const QDBusPendingCall&)> finished) {
    // Without a bus no watcher would ever report.
    if (call.isError()) {
        QMetaObject::invokeMethod(
            this, [call, finished = std::move(finished)] { finished(call); }, Qt::QueuedConnection);
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [finished = std::move(finished)](QDBusPendingCallWatcher* done) {
                done->deleteLater();
                finished(*done);
            });
}

} // namespace tolvar
