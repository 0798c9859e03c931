#include "App/Client/StatusFormat.h"

#include "App/Client/TextTable.h"
#include "Extensions/DurationFormatting.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;
using State = StatusReport::State;

QString compact(const QJsonObject& object) {
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

bool hasSession(const StatusReport& report) {
    return report.state == State::focusing || report.state == State::paused;
}

/// "Write report" as "on Write report"; nothing for a session without a goal.
QString onGoal(const StatusReport& report) {
    return report.goal.isEmpty() ? QString() : u" on "_s + singleLine(report.goal);
}

QString pauses(int left) {
    return left == 1 ? u"1 pause left"_s : u"%1 pauses left"_s.arg(left);
}

QString textLine(const StatusReport& report) {
    switch (report.state) {
    case State::off:
        return u"Not running"_s;
    case State::ready:
        return u"Ready"_s;
    case State::focusing:
        return u"Focusing%1: %2 left, %3"_s.arg(onGoal(report), remainingClock(report),
                                                pauses(report.pausesLeft));
    case State::paused:
        return u"Paused%1: %2 left, goes on in %3, %4"_s.arg(
            onGoal(report), remainingClock(report),
            formattedClock(std::max(report.pauseRemaining, 0), PadMinutes::no),
            pauses(report.pausesLeft));
    }
    Q_UNREACHABLE();
}

QString jsonLine(const StatusReport& report) {
    QJsonObject object = {{u"status"_s, stateName(report.state)}};
    if (hasSession(report)) {
        object.insert(u"goal"_s, report.goal);
        object.insert(u"duration"_s, report.duration);
        object.insert(u"remaining"_s, report.remaining);
        object.insert(u"elapsed"_s, report.elapsed);
        object.insert(u"pausesLeft"_s, report.pausesLeft);
        object.insert(u"blockedApps"_s, QJsonArray::fromStringList(report.blockedApps));
        object.insert(u"blockedWebsites"_s, QJsonArray::fromStringList(report.blockedWebsites));
        object.insert(u"clock"_s, remainingClock(report));
    }
    if (report.state == State::paused)
        object.insert(u"pauseRemaining"_s, report.pauseRemaining);
    return compact(object);
}

/// How much of the session is done, in whole percent.
int percentage(const StatusReport& report) {
    const double done = report.elapsed / report.duration;
    return done > 0 ? static_cast<int>(std::min(done, 1.0) * 100) : 0;
}

QString waybarLine(const StatusReport& report) {
    const QString state = stateName(report.state);
    return compact({
        {u"text"_s, hasSession(report) ? remainingClock(report) : QString()},
        {u"alt"_s, state},
        {u"class"_s, state},
        {u"tooltip"_s, textLine(report).toHtmlEscaped()},
        {u"percentage"_s, percentage(report)},
    });
}

/// A bar reads "%{" as the beginning of a formatting tag and offers no way to escape it.
QString polybarLine(const StatusReport& report) {
    if (!hasSession(report))
        return {};
    QString line = remainingClock(report);
    if (!report.goal.isEmpty())
        line += u' ' + singleLine(report.goal).replace(u"%{"_s, u"% {"_s);
    return report.state == State::paused ? line + u" (paused)"_s : line;
}

} // namespace

QString formatStatus(const StatusReport& report, Command::Status::Format format) {
    switch (format) {
    case Command::Status::Format::text:
        return textLine(report);
    case Command::Status::Format::json:
        return jsonLine(report);
    case Command::Status::Format::waybar:
        return waybarLine(report);
    case Command::Status::Format::polybar:
        return polybarLine(report);
    }
    Q_UNREACHABLE();
}

QString remainingClock(const StatusReport& report) {
    const Seconds remaining = std::ceil(std::max(report.remaining, 0.0));
    return isShowable(remaining) ? formattedClock(static_cast<qint64>(remaining), PadMinutes::no)
                                 : u"\u2014"_s;
}

} // namespace tolvar
