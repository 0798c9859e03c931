#pragma once

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>

namespace tolvar {

/// One ended session, as the remote control tells it.
struct HistoryEntry {
    QString id;
    QString goal;
    /// Seconds since 1970-01-01 UTC.
    double start = 0;
    double end = 0;
    /// Seconds.
    double duration = 0;
    double focusedTime = 0;
    /// "completed" or "endedEarly".
    QString outcome;
    QStringList blockedApps;
    QStringList blockedWebsites;

    bool operator==(const HistoryEntry&) const = default;
};

struct PresetEntry {
    QString id;
    QString name;
    /// Seconds.
    double duration = 0;
    QStringList categories;
    QStringList apps;
    QStringList websites;

    bool operator==(const PresetEntry&) const = default;
};

struct CategoryEntry {
    QString id;
    QString name;
    QStringList apps;
    QStringList websites;

    bool operator==(const CategoryEntry&) const = default;
};

struct ApplicationEntry {
    QString name;
    QString id;

    bool operator==(const ApplicationEntry&) const = default;
};

QDBusArgument& operator<<(QDBusArgument& argument, const HistoryEntry& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, HistoryEntry& entry);
QDBusArgument& operator<<(QDBusArgument& argument, const PresetEntry& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, PresetEntry& entry);
QDBusArgument& operator<<(QDBusArgument& argument, const CategoryEntry& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, CategoryEntry& entry);
QDBusArgument& operator<<(QDBusArgument& argument, const ApplicationEntry& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, ApplicationEntry& entry);

/// To be called once before a record crosses the bus.
void registerRemoteRecords();

} // namespace tolvar

Q_DECLARE_METATYPE(tolvar::HistoryEntry)
Q_DECLARE_METATYPE(tolvar::PresetEntry)
Q_DECLARE_METATYPE(tolvar::CategoryEntry)
Q_DECLARE_METATYPE(tolvar::ApplicationEntry)
