#pragma once

#include "App/Protocol/RemoteRecords.h"

#include <QJsonObject>
#include <QString>

namespace tolvar {

/// The lists that the command line shows: as tables for people, or as one JSON array for programs.

/// Moments as local time; lengths as people say them.
QString historyTable(const QList<HistoryEntry>& sessions);
QString presetTable(const QList<PresetEntry>& presets);
QString categoryTable(const QList<CategoryEntry>& categories);
QString applicationTable(const QList<ApplicationEntry>& applications);

/// "start" and "end" in ISO 8601, UTC, with milliseconds.
QJsonObject toJson(const HistoryEntry& session);
QJsonObject toJson(const PresetEntry& preset);
QJsonObject toJson(const CategoryEntry& category);
QJsonObject toJson(const ApplicationEntry& application);

} // namespace tolvar
