#pragma once

#include "Extensions/ObserverList.h"
#include "Platform/Interfaces/StatusItem.h"
#include "Platform/Interfaces/StatusItemArt.h"
#include "Platform/Interfaces/StatusItemPopups.h"
#include "Platform/Linux/StatusNotifier/StatusMenuObject.h"
#include "Platform/Linux/StatusNotifier/StatusNotifierObject.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <memory>

class OrgKdeStatusNotifierWatcherInterface;

namespace tolvar {

/// The status item on the session bus, for panels that draw it themselves (freedesktop Status
/// Notifier Item). The host decides about its width; one that shows no label shows the castle
/// alone, with the countdown in its tooltip.
///
/// It has a name of its own on the bus, org.kde.StatusNotifierItem-PROCESS-1, and registers again
/// whenever the watcher comes back. Nothing here waits.
class StatusNotifierItem final : public QObject, public StatusItem {
    Q_OBJECT

public:
    struct Options {
        QDBusConnection bus;
        /// "app.tolvar.Tolvar" and "Tolvar".
        QString identifier;
        QString title;
        /// See StatusNotifierObject::Identity.
        QString iconThemePath;
        StatusItemArt art;
        /// Opens the menu for a host that asks us to; outlives the item.
        StatusItemPopups& popups;
    };

    explicit StatusNotifierItem(const Options& options);
    /// Takes the item off the panel.
    ~StatusNotifierItem() override;

    void show(const StatusItemContent& content) override;
    int iconOnlyLength() const override;
    double iconWidth() const override;
    double labelWidth(const QString& label) const override;
    std::optional<QRect> anchor() const override { return std::nullopt; }
    Subscription observe(Observer observer) override {
        return m_observers.add(std::move(observer));
    }

private:
    void registerWithWatcher();
    void activate(std::optional<QPoint> claimed);
    void choose(StatusCommand command) { m_observers.call(&Observer::chosen, command); }

    Options m_options;
    QString m_service;
    std::vector<StatusMenuEntry> m_menuEntries;
    StatusMenuObject m_menu;
    StatusNotifierObject m_object;
    std::unique_ptr<OrgKdeStatusNotifierWatcherInterface> m_watcher;
    QDBusServiceWatcher m_watcherWatch;
    ObserverList<Observer> m_observers;
};

} // namespace tolvar
