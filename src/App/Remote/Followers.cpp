#include "App/Remote/Followers.h"

#include <QDBusConnectionInterface>

namespace tolvar {

Followers::Followers(const QDBusConnection& bus)
    : m_bus(bus) {
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    if (bus.isConnected())
        m_watcher.setConnection(bus);
    QObject::connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, &m_watcher,
                     [this](const QString& name) { remove(name); });
}

void Followers::add(const QString& name) {
    if (m_names.contains(name))
        return;
    m_names.append(name);
    m_watcher.addWatchedService(name);
    // It may have left before the bus knew that it is watched.
    if (!m_bus.interface()->isServiceRegistered(name))
        remove(name);
}

void Followers::remove(const QString& name) {
    m_names.removeAll(name);
    m_watcher.removeWatchedService(name);
}

} // namespace tolvar
