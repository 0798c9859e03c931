#include "Platform/Linux/DBus/FakeNotificationServer.h"

#include "NotificationsAdaptor.h"

namespace tolvar::test {

namespace {

using namespace Qt::StringLiterals;

const QString serviceName = u"org.freedesktop.Notifications"_s;
const QString objectPath = u"/org/freedesktop/Notifications"_s;

} // namespace

FakeNotificationServer::FakeNotificationServer(const QDBusConnection& bus)
    : m_bus(bus) {
    new NotificationsAdaptor(this);
    m_bus.registerObject(objectPath, this);
    m_bus.registerService(serviceName);
}

FakeNotificationServer::~FakeNotificationServer() {
    leave();
}

void FakeNotificationServer::leave() {
    m_bus.unregisterService(serviceName);
    m_bus.unregisterObject(objectPath);
}

QStringList FakeNotificationServer::GetCapabilities() {
    takeCall();
    return m_capabilities;
}

QString FakeNotificationServer::GetServerInformation(QString& vendor, QString& version,
                                                     QString& specVersion) {
    takeCall();
    vendor = u"Tolvar"_s;
    version = u"1"_s;
    specVersion = u"1.2"_s;
    return u"Fake"_s;
}

uint FakeNotificationServer::Notify(const QString& appName, uint replacesId, const QString& appIcon,
                                    const QString& summary, const QString& body,
                                    const QStringList& actions, const QVariantMap& hints,
                                    int expireTimeout) {
    takeCall();
    m_notifications.push_back(
        {appName, replacesId, appIcon, summary, body, actions, hints, expireTimeout});
    return replacesId != 0 ? replacesId : m_nextNumber++;
}

void FakeNotificationServer::CloseNotification(uint id) {
    takeCall();
    Q_EMIT NotificationClosed(id, 3);
}

void FakeNotificationServer::takeCall() {
    ++m_calls;
    if (m_answers == Answers::never)
        setDelayedReply(true);
}

} // namespace tolvar::test
