#pragma once

#include "Extensions/ObserverList.h"
#include "Platform/Interfaces/AccessibilitySettings.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>
#include <set>

class OrgFreedesktopPortalSettingsInterface;
class QDBusPendingCall;
class QDBusVariant;
class QVariant;

namespace tolvar {

/// The user's wishes as the desktop's settings portal tells them (org.freedesktop.portal.Settings,
/// versions 1 and 2): motion is reduced when `enable-animations` of org.gnome.desktop.interface is
/// false or `reduced-motion` of org.freedesktop.appearance is 1. A value that is absent or of
/// another type asks for nothing.
///
/// Nothing here waits for the portal: motion is not reduced until the portal has answered. It is
/// asked when it is there or appears, and never started. What it last said stands while it is gone
/// or fails to answer, so that nothing begins to move because a portal is restarted.
class PortalAccessibilitySettings final : public QObject, public AccessibilitySettings {
    Q_OBJECT

public:
    /// `bus` need not be connected; then motion is never reduced.
    explicit PortalAccessibilitySettings(const QDBusConnection& bus);
    ~PortalAccessibilitySettings() override;

    bool reducesMotion() const override { return !m_reducing.empty(); }
    /// `changed` does not destroy this object.
    Subscription observe(std::function<void()> changed) override;

private:
    struct Setting;

    void findPortal();
    void follow(const QString& owner);
    void ask(const Setting& setting);
    /// Asks as version 1 wants it.
    void askFormerly(const Setting& setting);
    void take(const Setting& setting, const QDBusPendingCall& answer);
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
    void note(const Setting& setting, const QVariant& value);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_serviceWatcher;
    /// The portal that is there now, or none.
    std::unique_ptr<OrgFreedesktopPortalSettingsInterface> m_portal;
    /// The keys whose values ask for less motion.
    std::set<QString> m_reducing;
    ObserverList<std::function<void()>> m_observers;
};

} // namespace tolvar
