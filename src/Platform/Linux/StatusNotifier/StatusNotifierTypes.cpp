#include "Platform/Linux/StatusNotifier/StatusNotifierTypes.h"

#include <QDBusMetaType>

namespace tolvar {

namespace {

template<typename... Fields>
QDBusArgument& write(QDBusArgument& argument, const Fields&... fields) {
    argument.beginStructure();
    (argument << ... << fields);
    argument.endStructure();
    return argument;
}

template<typename... Fields>
const QDBusArgument& read(const QDBusArgument& argument, Fields&... fields) {
    argument.beginStructure();
    (argument >> ... >> fields);
    argument.endStructure();
    return argument;
}

/// The bus finds the type of an argument by the name that the interface has for it.
template<typename List>
void registerList(const char* alias) {
    qDBusRegisterMetaType<typename List::value_type>();
    qDBusRegisterMetaType<List>();
    qRegisterMetaType<List>(alias);
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const StatusIconPixmap& pixmap) {
    return write(argument, pixmap.width, pixmap.height, pixmap.bytes);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusIconPixmap& pixmap) {
    return read(argument, pixmap.width, pixmap.height, pixmap.bytes);
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusToolTip& toolTip) {
    return write(argument, toolTip.iconName, toolTip.pixmaps, toolTip.title, toolTip.description);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusToolTip& toolTip) {
    return read(argument, toolTip.iconName, toolTip.pixmaps, toolTip.title, toolTip.description);
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuItem& item) {
    return write(argument, item.id, item.properties);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItem& item) {
    return read(argument, item.id, item.properties);
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuRemoval& removal) {
    return write(argument, removal.id, removal.properties);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuRemoval& removal) {
    return read(argument, removal.id, removal.properties);
}

/// Children travel as variants, for a type of D-Bus cannot contain itself.
QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayout& layout) {
    QList<QDBusVariant> children;
    for (const MenuLayout& child : layout.children)
        children.append(QDBusVariant(QVariant::fromValue(child)));
    return write(argument, layout.id, layout.properties, children);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayout& layout) {
    QList<QDBusVariant> children;
    read(argument, layout.id, layout.properties, children);
    layout.children.clear();
    for (const QDBusVariant& child : children)
        layout.children.append(qdbus_cast<MenuLayout>(child.variant()));
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event) {
    return write(argument, event.id, event.eventId, event.data, event.timestamp);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event) {
    return read(argument, event.id, event.eventId, event.data, event.timestamp);
}

void registerStatusNotifierTypes() {
    registerList<StatusIconPixmaps>("tolvar::StatusIconPixmaps");
    registerList<MenuItems>("tolvar::MenuItems");
    registerList<MenuRemovals>("tolvar::MenuRemovals");
    registerList<MenuEvents>("tolvar::MenuEvents");
    qDBusRegisterMetaType<StatusToolTip>();
    qDBusRegisterMetaType<MenuLayout>();
}

} // namespace tolvar
