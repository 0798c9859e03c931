#include "Platform/Linux/DBus/FakeSettingsPortal.h"

#include "SettingsPortalAdaptor.h"

namespace tolvar::test {

namespace {

using namespace Qt::StringLiterals;

const QString serviceName = u"org.freedesktop.portal.Desktop"_s;
const QString objectPath = u"/org/freedesktop/portal/desktop"_s;

} // namespace

FakeSettingsPortal::FakeSettingsPortal(const QDBusConnection& bus)
    : m_bus(bus) {
    new SettingsPortalAdaptor(this);
    m_bus.registerObject(objectPath, this);
}

FakeSettingsPortal::~FakeSettingsPortal() {
    leave();
    m_bus.unregisterObject(objectPath);
}

void FakeSettingsPortal::appear() {
    m_bus.registerService(serviceName);
}

void FakeSettingsPortal::leave() {
    m_bus.unregisterService(serviceName);
}

void FakeSettingsPortal::put(const QString& group, const QString& key, const QVariant& value) {
    m_settings[{group, key}] = value;
}

void FakeSettingsPortal::change(const QString& group, const QString& key, const QVariant& value) {
    put(group, key, value);
    Q_EMIT SettingChanged(group, key, QDBusVariant(value));
}

void FakeSettingsPortal::remove(const QString& group, const QString& key) {
    m_settings.erase({group, key});
}

QDBusVariant FakeSettingsPortal::ReadOne(const QString& group, const QString& key) {
    if (m_version == Version::one) {
        ++m_questions;
        sendErrorReply(QDBusError::UnknownMethod, u"No such method"_s);
        return QDBusVariant(0);
    }
    return answer(group, key);
}

QDBusVariant FakeSettingsPortal::Read(const QString& group, const QString& key) {
    return QDBusVariant(QVariant::fromValue(answer(group, key)));
}

QDBusVariant FakeSettingsPortal::answer(const QString& group, const QString& key) {
    ++m_questions;
    const auto setting = m_settings.find({group, key});
    if (!m_error.isEmpty())
        sendErrorReply(m_error, u"It fails"_s);
    else if (setting == m_settings.end())
        sendErrorReply(u"org.freedesktop.portal.Error.NotFound"_s,
                       u"Requested setting not found"_s);
    else
        return QDBusVariant(setting->second);
    return QDBusVariant(0);
}

} // namespace tolvar::test
