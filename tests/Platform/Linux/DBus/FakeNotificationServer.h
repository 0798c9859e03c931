#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

#include <vector>

namespace tolvar::test {

/// A notification server that remembers what it was asked. Functions and signals have the names
/// that D-Bus gives them.
class FakeNotificationServer final : public QObject, protected QDBusContext {
    Q_OBJECT

public:
    struct Notification {
        QString appName;
        uint replacesId = 0;
        QString appIcon;
        QString summary;
        QString body;
        QStringList actions;
        QVariantMap hints;
        int expireTimeout = 0;
    };
    enum class Answers { yes, never };

    /// Serves on `bus` from now on, until it is destroyed or `leave` is called.
    explicit FakeNotificationServer(const QDBusConnection& bus);
    ~FakeNotificationServer() override;
    void leave();

    void setCapabilities(const QStringList& capabilities) { m_capabilities = capabilities; }
    void setAnswers(Answers answers) { m_answers = answers; }
    /// Numbers of new notifications count on from here.
    void setNextNumber(uint number) { m_nextNumber = number; }

    /// How many calls came in so far.
    int calls() const { return m_calls; }
    const std::vector<Notification>& notifications() const { return m_notifications; }

    QStringList GetCapabilities();
    QString GetServerInformation(QString& vendor, QString& version, QString& specVersion);
    uint Notify(const QString& appName, uint replacesId, const QString& appIcon,
                const QString& summary, const QString& body, const QStringList& actions,
                const QVariantMap& hints, int expireTimeout);
    void CloseNotification(uint id);

Q_SIGNALS:
    void ActionInvoked(uint id, const QString& action);
    void NotificationClosed(uint id, uint reason);

private:
    void takeCall();

    QDBusConnection m_bus;
    QStringList m_capabilities = {QStringLiteral("body"), QStringLiteral("actions")};
    Answers m_answers = Answers::yes;
    uint m_nextNumber = 1;
    int m_calls = 0;
    std::vector<Notification> m_notifications;
};

} // namespace tolvar::test
