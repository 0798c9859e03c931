#include "Views/History/RelativeDate.h"

#include "Extensions/LocalTime.h"

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

constexpr int daysToldByName = 6;

QString dayText(const QDate& day, const QDate& today, const QLocale& locale) {
    const qint64 ago = day.daysTo(today);
    if (ago == 0)
        return u"Today"_s;
    if (ago == 1)
        return u"Yesterday"_s;
    if (ago > 0 && ago <= daysToldByName)
        return locale.toString(day, u"dddd"_s);
    return monthAndDay(day, locale);
}

} // namespace

QString relativeDate(Date date, Date now, const QLocale& locale) {
    const QLocale written = writtenLocale(locale);
    const QDateTime moment = localTime(date);
    return u"%1, %2"_s.arg(dayText(moment.date(), localTime(now).date(), written),
                           written.toString(moment.time(), QLocale::ShortFormat));
}

} // namespace tolvar
