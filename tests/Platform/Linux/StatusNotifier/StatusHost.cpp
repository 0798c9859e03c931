#include "Platform/Linux/StatusNotifier/StatusHost.h"

#include "Platform/Linux/DBus/PrivateBus.h"

#include <QDBusPendingCall>
#include <QDBusVariant>

#include <utility>

namespace tolvar::test {

namespace {

using namespace Qt::StringLiterals;

const QString itemPath = u"/StatusNotifierItem"_s;
const QString menuPath = u"/StatusNotifierItem/Menu"_s;
const QString itemInterface = u"org.kde.StatusNotifierItem"_s;
const QString menuInterface = u"com.canonical.dbusmenu"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

QVariant onlyValue(const QDBusMessage& reply) {
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

} // namespace

StatusHost::StatusHost(const QDBusConnection& bus, QString service)
    : m_bus(bus)
    , m_service(std::move(service)) {
    connectTo(itemPath, itemInterface, u"NewIcon"_s, SLOT(noteIcon()));
    connectTo(itemPath, itemInterface, u"NewToolTip"_s, SLOT(noteToolTip()));
    connectTo(itemPath, itemInterface, u"XAyatanaNewLabel"_s, SLOT(noteLabel(QString, QString)));
    connectTo(menuPath, menuInterface, u"LayoutUpdated"_s, SLOT(noteLayout(uint, int)));
    connectTo(menuPath, menuInterface, u"ItemsPropertiesUpdated"_s,
              SLOT(noteProperties(QDBusMessage)));
}

void StatusHost::connectTo(const QString& path, const QString& interface, const QString& signal,
                           const char* slot) {
    m_bus.connect(m_service, path, interface, signal, this, slot);
}

QDBusMessage StatusHost::call(const QString& path, const QString& interface, const QString& method,
                              const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(m_service, path, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCall pending = m_bus.asyncCall(message);
    eventually([&] { return pending.isFinished(); });
    return pending.reply();
}

QDBusMessage StatusHost::callItem(const QString& method, const QVariantList& arguments) {
    return call(itemPath, itemInterface, method, arguments);
}

QDBusMessage StatusHost::callMenu(const QString& method, const QVariantList& arguments) {
    return call(menuPath, menuInterface, method, arguments);
}

QVariant StatusHost::itemProperty(const QString& name) {
    return onlyValue(call(itemPath, propertiesInterface, u"Get"_s, {itemInterface, name}));
}

QVariant StatusHost::menuProperty(const QString& name) {
    return onlyValue(call(menuPath, propertiesInterface, u"Get"_s, {menuInterface, name}));
}

MenuLayout StatusHost::menu() {
    const QDBusMessage reply = callMenu(u"GetLayout"_s, {0, -1, QStringList()});
    return qdbus_cast<MenuLayout>(reply.arguments().value(1));
}

QStringList StatusHost::menuLines() {
    QStringList lines;
    for (const MenuLayout& entry : menu().children) {
        const QString label = entry.properties.value(u"label"_s).toString();
        if (entry.properties.value(u"type"_s) == u"separator"_s)
            lines += u"-"_s;
        else
            lines +=
                entry.properties.value(u"enabled"_s, true).toBool() ? label : u"(%1)"_s.arg(label);
    }
    return lines;
}

void StatusHost::choose(const QString& label) {
    for (const MenuLayout& entry : menu().children)
        if (entry.properties.value(u"label"_s) == label)
            callMenu(u"Event"_s,
                     {entry.id, u"clicked"_s, QVariant::fromValue(QDBusVariant(QString())), 0u});
}

/// Signals arrive in the order of the answers: after one, all earlier ones are here.
QStringList StatusHost::takeSignals() {
    itemProperty(u"Id"_s);
    return std::exchange(m_signals, {});
}

void StatusHost::noteProperties(const QDBusMessage& message) {
    QStringList labels;
    for (const MenuItem& item : qdbus_cast<MenuItems>(message.arguments().value(0)))
        labels += item.properties.value(u"label"_s).toString();
    m_signals += u"ItemsPropertiesUpdated(%1)"_s.arg(labels.join(u", "_s));
}

} // namespace tolvar::test
