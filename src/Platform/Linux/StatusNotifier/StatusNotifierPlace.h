#pragma once

#include "Platform/Interfaces/StatusItemPlace.h"
#include "Platform/Linux/StatusNotifier/StatusNotifierItem.h"

#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>

class OrgFreedesktopDBusInterface;
class OrgFreedesktopDBusPropertiesInterface;
class OrgKdeStatusNotifierWatcherInterface;
class QDBusPendingCall;

namespace tolvar {

/// Whether a panel on the session bus shows status items: there is a watcher, and it knows of a
/// host. Without a bus there is none. Nothing here waits.
class StatusNotifierPlace final : public QObject, public StatusItemPlace {
    Q_OBJECT

public:
    explicit StatusNotifierPlace(const StatusNotifierItem::Options& options);
    ~StatusNotifierPlace() override;

    Presence presence() const override { return m_presence; }
    qint64 hostProcess() const override { return m_hostProcess; }
    Subscription observePresence(std::function<void()> changed) override {
        return m_observers.add(std::move(changed));
    }
    std::unique_ptr<StatusItem> makeItem() override;

private:
    void ask();
    void askForProcess();
    void become(Presence presence);
    /// Calls `finished` with the answer unless another question was asked meanwhile.
    void await(const QDBusPendingCall& answer,
               std::function<void(const QDBusPendingCall&)> finished);

    StatusNotifierItem::Options m_options;
    std::unique_ptr<OrgKdeStatusNotifierWatcherInterface> m_watcher;
    std::unique_ptr<OrgFreedesktopDBusPropertiesInterface> m_properties;
    std::unique_ptr<OrgFreedesktopDBusInterface> m_busItself;
    QDBusServiceWatcher m_watcherWatch;
    qint64 m_hostProcess = 0;
    Presence m_presence = Presence::unknown;
    /// Only the answer to the last question counts.
    int m_question = 0;
    ObserverList<std::function<void()>> m_observers;
};

} // namespace tolvar
