#pragma once

#include "Platform/Interfaces/NotificationCenter.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <chrono>
#include <deque>
#include <map>
#include <memory>

class OrgFreedesktopNotificationsInterface;
class QDBusPendingCall;

namespace tolvar {

/// Notifications through org.freedesktop.Notifications (Desktop Notifications Specification 1.2).
///
/// Nothing here waits: a server that is missing, denies, hangs or dies is an error handed to the
/// callback. Notifications go out one after the other, so that one which replaces another finds
/// its number. Answers that are outstanding when this object is destroyed never come.
class FreedesktopNotificationCenter final : public QObject, public NotificationCenter {
    Q_OBJECT

public:
    /// How notifications present this program.
    struct Sender {
        /// The name people see.
        QString name;
        /// Names the desktop entry and the icon.
        QString desktopEntry;
    };

    /// `bus` need not be connected; then every request is answered with an error. A server that
    /// says nothing for `patience` counts as hung.
    FreedesktopNotificationCenter(const QDBusConnection& bus, Sender sender,
                                  std::chrono::milliseconds patience = std::chrono::seconds(25));
    ~FreedesktopNotificationCenter() override;

    /// A server that answers at all grants it; one that the bus does not let us talk to denies it.
    void
    requestAuthorization(std::function<void(const NotificationAuthorization&)> answered) override;
    void add(const QString& identifier, const NotificationContent& content,
             std::function<void(std::optional<QString>)> delivered) override;
    Subscription observeOpened(std::function<void(const QString&)> opened) override;

private:
    struct Request {
        QString identifier;
        NotificationContent content;
        std::function<void(std::optional<QString>)> delivered;
    };
    using OpenedObservers = std::map<int, std::function<void(const QString&)>>;

    void postNext();
    void post(bool serverReadsMarkup);
    void finishCurrent(const std::optional<QString>& error);
    QVariantMap hints(NotificationSound sound) const;
    void actionInvoked(uint number, const QString& action);
    void notificationClosed(uint number);
    void forgetServer();
    /// Calls `finished` with the call when it has its reply or error.
    void whenFinished(const QDBusPendingCall& call,
                      std::function<void(const QDBusPendingCall&)> finished);

    Sender m_sender;
    std::unique_ptr<OrgFreedesktopNotificationsInterface> m_server;
    QDBusServiceWatcher m_serverWatcher;
    /// The first one is on its way.
    std::deque<Request> m_requests;
    /// The server's numbers of the notifications that may still be shown.
    std::map<QString, uint> m_numbers;
    std::shared_ptr<OpenedObservers> m_openedObservers = std::make_shared<OpenedObservers>();
    int m_nextObserver = 0;
};

} // namespace tolvar
