#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <functional>

namespace tolvar::test {

/// A session bus of its own, without any service that could be activated but those of
/// `offerService`. It ends with this object.
class PrivateBus {
public:
    /// Messages to `deniedService` are refused by the bus; none when empty.
    explicit PrivateBus(const QString& deniedService = {});
    ~PrivateBus();

    const QString& address() const { return m_address; }
    /// A new connection; it closes when the bus ends.
    QDBusConnection connect();
    /// From now on the bus starts `command` when `service` is called and is not there.
    void offerService(const QString& service, const QString& command);
    /// The bus dies, and every connection with it.
    void kill();

private:
    QString writeConfiguration(const QString& deniedService) const;

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

/// Handles events until the condition holds; false when it did not within some seconds.
bool eventually(const std::function<bool()>& condition);

} // namespace tolvar::test
