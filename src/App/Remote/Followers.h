#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QStringList>

namespace tolvar {

/// Who on the bus wants to be told of every change: unique names, each once. One that leaves the
/// bus is dropped.
class Followers {
public:
    explicit Followers(const QDBusConnection& bus);

    const QStringList& names() const { return m_names; }
    /// Needs a bus.
    void add(const QString& name);
    void remove(const QString& name);

private:
    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    QStringList m_names;
};

} // namespace tolvar
