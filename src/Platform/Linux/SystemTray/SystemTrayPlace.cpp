#include "Platform/Linux/SystemTray/SystemTrayPlace.h"

#include <utility>

namespace tolvar {

std::unique_ptr<SystemTrayPlace> SystemTrayPlace::create(const SystemTrayItem::Options& options) {
    auto connection = TrayConnection::open();
    if (!connection)
        return nullptr;
    return std::unique_ptr<SystemTrayPlace>(new SystemTrayPlace(std::move(connection), options));
}

SystemTrayPlace::SystemTrayPlace(std::shared_ptr<TrayConnection> connection,
                                 const SystemTrayItem::Options& options)
    : m_connection(std::move(connection))
    , m_options(options) {
    m_managers = m_connection->observe({.managerChanged = [this] {
        QMetaObject::invokeMethod(
            &m_later, [this] { m_observers.tell([](const auto& changed) { changed(); }); },
            Qt::QueuedConnection);
    }});
}

StatusItemPlace::Presence SystemTrayPlace::presence() const {
    return m_connection->manager() == XCB_NONE ? Presence::absent : Presence::present;
}

qint64 SystemTrayPlace::hostProcess() const {
    if (m_connection->manager() == XCB_NONE)
        return 0;
    const qint64 process = m_connection->server().localProcesses({m_connection->manager()}).front();
    m_connection->readEventsSoon();
    return process;
}

Subscription SystemTrayPlace::observePresence(std::function<void()> changed) {
    return m_observers.add(std::move(changed));
}

std::unique_ptr<StatusItem> SystemTrayPlace::makeItem() {
    return std::make_unique<SystemTrayItem>(m_connection, m_options);
}

} // namespace tolvar
