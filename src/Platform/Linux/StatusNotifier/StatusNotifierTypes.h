#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace tolvar {

/// A picture as status items send it: ARGB of 32 bits, most significant byte first, row by row.
struct StatusIconPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;

    bool operator==(const StatusIconPixmap&) const = default;
};
using StatusIconPixmaps = QList<StatusIconPixmap>;

struct StatusToolTip {
    QString iconName;
    StatusIconPixmaps pixmaps;
    QString title;
    QString description;

    bool operator==(const StatusToolTip&) const = default;
};

/// An entry of a menu with the properties that were asked for or have changed.
struct MenuItem {
    int id = 0;
    QVariantMap properties;

    bool operator==(const MenuItem&) const = default;
};
using MenuItems = QList<MenuItem>;

/// Properties of an entry that have their default values again.
struct MenuRemoval {
    int id = 0;
    QStringList properties;
};
using MenuRemovals = QList<MenuRemoval>;

/// An entry with those below it.
struct MenuLayout {
    int id = 0;
    QVariantMap properties;
    QList<MenuLayout> children;
};

/// What happened to an entry in the host's picture of the menu.
struct MenuEvent {
    int id = 0;
    QString eventId;
    QDBusVariant data;
    uint timestamp = 0;
};
using MenuEvents = QList<MenuEvent>;

QDBusArgument& operator<<(QDBusArgument& argument, const StatusIconPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusIconPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const StatusToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusToolTip& toolTip);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuItem& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItem& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuRemoval& removal);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuRemoval& removal);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayout& layout);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayout& layout);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event);

/// To be called once before any of these crosses the bus.
void registerStatusNotifierTypes();

} // namespace tolvar

Q_DECLARE_METATYPE(tolvar::StatusIconPixmap)
Q_DECLARE_METATYPE(tolvar::StatusToolTip)
Q_DECLARE_METATYPE(tolvar::MenuItem)
Q_DECLARE_METATYPE(tolvar::MenuRemoval)
Q_DECLARE_METATYPE(tolvar::MenuLayout)
Q_DECLARE_METATYPE(tolvar::MenuEvent)
