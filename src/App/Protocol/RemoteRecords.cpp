#include "App/Protocol/RemoteRecords.h"

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

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const HistoryEntry& entry) {
    return write(argument, entry.id, entry.goal, entry.start, entry.end, entry.duration,
                 entry.focusedTime, entry.outcome, entry.blockedApps, entry.blockedWebsites);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, HistoryEntry& entry) {
    return read(argument, entry.id, entry.goal, entry.start, entry.end, entry.duration,
                entry.focusedTime, entry.outcome, entry.blockedApps, entry.blockedWebsites);
}

QDBusArgument& operator<<(QDBusArgument& argument, const PresetEntry& entry) {
    return write(argument, entry.id, entry.name, entry.duration, entry.categories, entry.apps,
                 entry.websites);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PresetEntry& entry) {
    return read(argument, entry.id, entry.name, entry.duration, entry.categories, entry.apps,
                entry.websites);
}

QDBusArgument& operator<<(QDBusArgument& argument, const CategoryEntry& entry) {
    return write(argument, entry.id, entry.name, entry.apps, entry.websites);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, CategoryEntry& entry) {
    return read(argument, entry.id, entry.name, entry.apps, entry.websites);
}

QDBusArgument& operator<<(QDBusArgument& argument, const ApplicationEntry& entry) {
    return write(argument, entry.name, entry.id);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, ApplicationEntry& entry) {
    return read(argument, entry.name, entry.id);
}

void registerRemoteRecords() {
    qDBusRegisterMetaType<HistoryEntry>();
    qDBusRegisterMetaType<QList<HistoryEntry>>();
    qDBusRegisterMetaType<PresetEntry>();
    qDBusRegisterMetaType<QList<PresetEntry>>();
    qDBusRegisterMetaType<CategoryEntry>();
    qDBusRegisterMetaType<QList<CategoryEntry>>();
    qDBusRegisterMetaType<ApplicationEntry>();
    qDBusRegisterMetaType<QList<ApplicationEntry>>();
}

} // namespace tolvar
