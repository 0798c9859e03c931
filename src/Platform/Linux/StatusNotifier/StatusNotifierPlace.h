#pragma once

#include "Platform/Interfaces/StatusItemPlace.h"
#include "Platform/Linux/StatusNotifier/StatusNotifierItem.h"

#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>

class OrgFreedesktopDBusPropertiesInterface;
class OrgKdeStatusNotifierWatcherInterface;

namespace tolvar {

/// Whether a panel on the session bus shows status items: there is a watcher, and it knows of a
/// host. Without a bus there is none. Nothing here waits.
class StatusNotifierPlace final : public QObject, public StatusItemPlace {
    Q_OBJECT

public:
    explicit StatusNotifierPlace(const StatusNotifierItem::Options& options);
    ~StatusNotifierPlace() override;

    Presence presence() const override { return m_presence; }
    Subscription observePresence(std::function<void()> changed) override {
        return m_observers.add(std::move(changed));
    }
    std::unique_ptr<StatusItem> makeItem() override;

private:
    void ask();
    void become(Presence presence);

    StatusNotifierItem::Options m_options;
    std::unique_ptr<OrgKdeStatusNotifierWatcherInterface> m_watcher;
    std::unique_ptr<OrgFreedesktopDBusPropertiesInterface> m_properties;
    QDBusServiceWatcher m_watcherWatch;
    Presence m_presence = Presence::unknown;
    /// Only the answer to the last question counts.
    int m_question = 0;
    ObserverList<std::function<void()>> m_observers;
};

} // namespace tolvar
