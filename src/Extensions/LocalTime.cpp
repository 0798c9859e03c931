#include "Extensions/LocalTime.h"

#include <QRegularExpression>

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

/// The locale's long date ("Tuesday, March 4, 2025") without the day of the week and with a short
/// month.
QString mediumFormat(const QLocale& locale) {
    static const QRegularExpression leadingWeekday(uR"(^dddd([^'yMd]|'[^']*')*)"_s);
    static const QRegularExpression trailingWeekday(uR"([\s,،-]*dddd.*$)"_s);
    QString format = locale.dateFormat(QLocale::LongFormat);
    format.remove(leadingWeekday).remove(trailingWeekday).replace("MMMM"_L1, "MMM"_L1);
    return format;
}

} // namespace

QDateTime localTime(Date date) {
    constexpr Seconds furthest = 8e12;
    const auto seconds = std::clamp(date.sinceEpoch(), -furthest, furthest);
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(seconds * 1000));
}

QLocale writtenLocale(const QLocale& locale) {
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

QString mediumDate(const QDate& date, const QLocale& locale) {
    return locale.toString(date, mediumFormat(locale));
}

/// From the month to the day or the other way round, with what clings to the latter of them, as
/// "月" and "日" do.
QString monthAndDay(const QDate& date, const QLocale& locale) {
    static const QRegularExpression fields(uR"((M+.*?d+|d+.*?M+)([^\s,،'yMd/-]|'[^\s']+')*)"_s,
                                           QRegularExpression::DotMatchesEverythingOption);
    const QString format = mediumFormat(locale);
    const auto found = fields.match(format);
    return locale.toString(date, found.hasMatch() ? found.captured() : format);
}

} // namespace tolvar
