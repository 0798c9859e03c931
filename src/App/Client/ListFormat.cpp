#include "App/Client/ListFormat.h"

#include "App/Client/TextTable.h"
#include "Extensions/DurationFormatting.h"

#include <QDateTime>
#include <QJsonArray>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// Invalid far outside the years that a calendar has.
QDateTime moment(double sinceEpoch) {
    if (!isShowable(sinceEpoch * 1000))
        return {};
    return QDateTime::fromMSecsSinceEpoch(qRound64(sinceEpoch * 1000), Qt::UTC);
}

QString orEmDash(const QString& text) {
    return text.isEmpty() ? u"\u2014"_s : text;
}

QString lengthText(Seconds duration) {
    return isShowable(duration) ? formattedCompact(duration) : orEmDash({});
}

QString isoText(double sinceEpoch) {
    return moment(sinceEpoch).toString(Qt::ISODateWithMs);
}

QString localText(double sinceEpoch) {
    return orEmDash(moment(sinceEpoch).toLocalTime().toString(u"yyyy-MM-dd HH:mm"_s));
}

QString outcomeText(const QString& outcome) {
    return outcome == u"completed"_s ? u"completed"_s : u"ended early"_s;
}

QString orDash(const QStringList& items) {
    return items.isEmpty() ? u"-"_s : items.join(u", "_s);
}

QJsonArray array(const QStringList& items) {
    return QJsonArray::fromStringList(items);
}

} // namespace

QString historyTable(const QList<HistoryEntry>& sessions) {
    std::vector<QStringList> rows = {
        {u"STARTED"_s, u"FOCUSED"_s, u"OF"_s, u"OUTCOME"_s, u"GOAL"_s}};
    for (const HistoryEntry& session : sessions)
        rows.push_back({localText(session.start), lengthText(session.focusedTime),
                        lengthText(session.duration), outcomeText(session.outcome), session.goal});
    return textTable(rows);
}

QString presetTable(const QList<PresetEntry>& presets) {
    std::vector<QStringList> rows = {
        {u"NAME"_s, u"LENGTH"_s, u"CATEGORIES"_s, u"APPS"_s, u"SITES"_s}};
    for (const PresetEntry& preset : presets)
        rows.push_back({preset.name, lengthText(preset.duration), orDash(preset.categories),
                        orDash(preset.apps), orDash(preset.websites)});
    return textTable(rows);
}

QString categoryTable(const QList<CategoryEntry>& categories) {
    std::vector<QStringList> rows = {{u"ID"_s, u"NAME"_s, u"APPS"_s, u"SITES"_s}};
    for (const CategoryEntry& category : categories)
        rows.push_back({category.id, category.name, QString::number(category.apps.size()),
                        QString::number(category.websites.size())});
    return textTable(rows);
}

QString applicationTable(const QList<ApplicationEntry>& applications) {
    std::vector<QStringList> rows = {{u"NAME"_s, u"ID"_s}};
    for (const ApplicationEntry& application : applications)
        rows.push_back({application.name, application.id});
    return textTable(rows);
}

QJsonObject toJson(const HistoryEntry& session) {
    return {
        {u"id"_s, session.id},
        {u"goal"_s, session.goal},
        {u"start"_s, isoText(session.start)},
        {u"end"_s, isoText(session.end)},
        {u"duration"_s, session.duration},
        {u"focusedTime"_s, session.focusedTime},
        {u"outcome"_s, session.outcome},
        {u"blockedApps"_s, array(session.blockedApps)},
        {u"blockedWebsites"_s, array(session.blockedWebsites)},
    };
}

QJsonObject toJson(const PresetEntry& preset) {
    return {
        {u"id"_s, preset.id},
        {u"name"_s, preset.name},
        {u"duration"_s, preset.duration},
        {u"categories"_s, array(preset.categories)},
        {u"apps"_s, array(preset.apps)},
        {u"websites"_s, array(preset.websites)},
    };
}

QJsonObject toJson(const CategoryEntry& category) {
    return {
        {u"id"_s, category.id},
        {u"name"_s, category.name},
        {u"apps"_s, array(category.apps)},
        {u"websites"_s, array(category.websites)},
    };
}

QJsonObject toJson(const ApplicationEntry& application) {
    return {{u"name"_s, application.name}, {u"id"_s, application.id}};
}

} // namespace tolvar
