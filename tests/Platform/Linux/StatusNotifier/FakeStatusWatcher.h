#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>

namespace tolvar::test {

/// A watcher for status items that remembers who registered. Functions, properties and signals have
/// the names that D-Bus gives them.
class FakeStatusWatcher final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)

public:
    /// Serves on `bus` from now on, until it is destroyed or `leave` is called.
    FakeStatusWatcher(const QDBusConnection& bus, bool hasHost);
    ~FakeStatusWatcher() override;
    void leave();
    void comeBack();
    void setHost(bool hasHost);

    bool hasHost() const { return m_hasHost; }
    const QStringList& registered() const { return m_registered; }

    void RegisterStatusNotifierItem(const QString& service) { m_registered.append(service); }

Q_SIGNALS:
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();

private:
    QDBusConnection m_bus;
    bool m_hasHost;
    QStringList m_registered;
};

} // namespace tolvar::test
