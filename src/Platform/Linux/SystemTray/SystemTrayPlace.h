#pragma once

#include "Platform/Interfaces/StatusItemPlace.h"
#include "Platform/Linux/SystemTray/SystemTrayItem.h"

#include <memory>

namespace tolvar {

/// Whether there is a system tray on this X11 desktop, whose colours and sizes the item then has.
class SystemTrayPlace final : public StatusItemPlace {
public:
    /// Connects to the X server of this session; null when there is none.
    static std::unique_ptr<SystemTrayPlace> create(const SystemTrayItem::Options& options);

    Presence presence() const override;
    qint64 hostProcess() const override;
    Subscription observePresence(std::function<void()> changed) override;
    std::unique_ptr<StatusItem> makeItem() override;

    /// Whether windows of this desktop are blended with what lies behind them.
    bool isComposited() const { return m_connection->isComposited(); }

private:
    SystemTrayPlace(std::shared_ptr<TrayConnection> connection,
                    const SystemTrayItem::Options& options);

    std::shared_ptr<TrayConnection> m_connection;
    SystemTrayItem::Options m_options;
    ObserverList<std::function<void()>> m_observers;
    /// The item may go while an event of it is handled: presence is told of after that.
    QObject m_later;
    Subscription m_managers;
};

} // namespace tolvar
