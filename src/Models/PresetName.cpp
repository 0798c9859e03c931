#include "Models/PresetName.h"

#include <QDateTime>
#include <QRegularExpression>

#include <algorithm>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// The "C" locale spells dates for machines; English ones stand in for them.
QLocale writtenLocale(const QLocale& locale) {
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

/// The locale's long date ("Tuesday, March 4, 2025") without the day of the week and with a short
/// month ("Mar 4, 2025"): what lies between the long and the all-digits form that QLocale offers.
QString mediumDate(const QDate& date, const QLocale& locale) {
    static const QRegularExpression leadingWeekday(uR"(^dddd([^'yMd]|'[^']*')*)"_s);
    static const QRegularExpression trailingWeekday(uR"([\s,،-]*dddd.*$)"_s);
    auto format = locale.dateFormat(QLocale::LongFormat);
    format.remove(leadingWeekday).remove(trailingWeekday).replace("MMMM"_L1, "MMM"_L1);
    return locale.toString(date, format);
}

QDateTime localTime(Date date) {
    // Stored dates may be any number; those beyond what a calendar can say are brought within.
    constexpr Seconds furthest = 8e12;
    const auto seconds = std::clamp(date.sinceEpoch(), -furthest, furthest);
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(seconds * 1000));
}

QString startText(Date start, const QLocale& locale) {
    const auto moment = localTime(start);
    return u"%1 at %2"_s.arg(mediumDate(moment.date(), locale),
                             locale.toString(moment.time(), QLocale::ShortFormat));
}

} // namespace

QString presetName(const FocusSession& session, const QLocale& locale) {
    if (auto goal = session.goal.trimmed(); !goal.isEmpty())
        return goal;
    if (session.startTime)
        return u"Session "_s + startText(*session.startTime, writtenLocale(locale));
    return u"Saved Session"_s;
}

} // namespace tolvar
