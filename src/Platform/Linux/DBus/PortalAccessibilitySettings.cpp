#include "Platform/Linux/DBus/PortalAccessibilitySettings.h"

#include "SettingsPortalInterface.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <array>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

const QString serviceName = u"org.freedesktop.portal.Desktop"_s;
const QString objectPath = u"/org/freedesktop/portal/desktop"_s;
/// The portal knows no such setting.
const QString notFound = u"org.freedesktop.portal.Error.NotFound"_s;
/// org.freedesktop.appearance, `reduced-motion`; 0 and unknown numbers stand for no preference.
constexpr uint lessMotion = 1;

bool isSwitchedOff(const QVariant& value) {
    return value.metaType() == QMetaType::fromType<bool>() && !value.toBool();
}

bool isReduced(const QVariant& value) {
    return value.metaType() == QMetaType::fromType<uint>() && value.toUInt() == lessMotion;
}

QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

/// Calls `finished` when the call has its reply or error, unless `context` is gone by then.
template<typename Finished>
void whenFinished(const QDBusPendingCall& call, QObject* context, Finished finished) {
    auto* watcher = new QDBusPendingCallWatcher(call, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [finished](QDBusPendingCallWatcher* done) {
                         done->deleteLater();
                         finished(*done);
                     });
}

} // namespace

/// A setting that has a say in how things move.
struct PortalAccessibilitySettings::Setting {
    QString group;
    QString key;
    bool (*reducesMotion)(const QVariant& value);

    static const std::array<Setting, 2> all;
};

const std::array<PortalAccessibilitySettings::Setting, 2>
    PortalAccessibilitySettings::Setting::all = {{
        {u"org.gnome.desktop.interface"_s, u"enable-animations"_s, &isSwitchedOff},
        {u"org.freedesktop.appearance"_s, u"reduced-motion"_s, &isReduced},
    }};

PortalAccessibilitySettings::PortalAccessibilitySettings(const QDBusConnection& bus)
    : m_bus(bus)
    , m_serviceWatcher(serviceName, bus) {
    // A signal is not heard as long as QtDBus knows the types of its arguments by no name.
    qRegisterMetaType<QDBusVariant>();
    connect(&m_serviceWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) { follow(owner); });
    findPortal();
}

PortalAccessibilitySettings::~PortalAccessibilitySettings() = default;

Subscription PortalAccessibilitySettings::observe(std::function<void()> changed) {
    return m_observers.add(std::move(changed));
}

void PortalAccessibilitySettings::findPortal() {
    if (!m_bus.isConnected())
        return;
    whenFinished(m_bus.interface()->asyncCall(u"GetNameOwner"_s, serviceName), this,
                 [this](const QDBusPendingReply<QString>& owner) {
                     if (!owner.isError())
                         follow(owner.value());
                 });
}

/// Speaks to the portal by its number on the bus: unlike its name, that is never activated, also
/// when the portal leaves at this moment.
void PortalAccessibilitySettings::follow(const QString& owner) {
    if (m_portal && m_portal->service() == owner)
        return;
    m_portal.reset();
    if (owner.isEmpty())
        return;
    m_portal = std::make_unique<OrgFreedesktopPortalSettingsInterface>(owner, objectPath, m_bus);
    connect(m_portal.get(), &OrgFreedesktopPortalSettingsInterface::SettingChanged, this,
            &PortalAccessibilitySettings::settingChanged);
    for (const Setting& setting : Setting::all)
        ask(setting);
}

/// Answers of a portal that has gone meanwhile are left out: its successor is asked as well.
void PortalAccessibilitySettings::ask(const Setting& setting) {
    whenFinished(m_portal->ReadOne(setting.group, setting.key), m_portal.get(),
                 [this, &setting](const QDBusPendingCall& answer) {
                     if (answer.isError() && answer.error().type() == QDBusError::UnknownMethod)
                         askFormerly(setting);
                     else
                         take(setting, answer);
                 });
}

void PortalAccessibilitySettings::askFormerly(const Setting& setting) {
    whenFinished(m_portal->Read(setting.group, setting.key), m_portal.get(),
                 [this, &setting](const QDBusPendingCall& answer) { take(setting, answer); });
}

void PortalAccessibilitySettings::take(const Setting& setting, const QDBusPendingCall& answer) {
    const QDBusPendingReply<QDBusVariant> value = answer;
    if (!value.isError())
        note(setting, value.value().variant());
    else if (value.error().name() == notFound)
        note(setting, {});
}

void PortalAccessibilitySettings::settingChanged(const QString& group, const QString& key,
                                                 const QDBusVariant& value) {
    for (const Setting& setting : Setting::all)
        if (setting.group == group && setting.key == key)
            return note(setting, value.variant());
}

void PortalAccessibilitySettings::note(const Setting& setting, const QVariant& value) {
    const bool wasReduced = reducesMotion();
    if (setting.reducesMotion(unwrapped(value)))
        m_reducing.insert(setting.key);
    else
        m_reducing.erase(setting.key);
    if (reducesMotion() != wasReduced)
        m_observers.tell();
}

} // namespace tolvar
