#include "Extensions/DurationFormatting.h"

#include <QtGlobal>

#include <cmath>

namespace tolvar {

namespace {

constexpr qint64 secondsPerMinute = 60;
constexpr qint64 secondsPerHour = 3600;
/// 2^63: the smallest magnitude beyond the 64-bit range (its negative is still within).
constexpr double beyondInt64 = 9223372036854775808.0;

QString twoDigits(qint64 number) {
    return QString::number(number).rightJustified(2, u'0');
}

} // namespace

bool isShowable(Seconds duration) {
    return duration >= -beyondInt64 && duration < beyondInt64;
}

QString formattedCompact(Seconds duration) {
    if (!isShowable(duration))
        qFatal("A duration of %f seconds cannot be shown", duration);
    const auto seconds = static_cast<qint64>(duration);
    const qint64 hours = seconds / secondsPerHour;
    const qint64 minutes = (seconds - hours * secondsPerHour) / secondsPerMinute;

    if (seconds < secondsPerHour)
        return QStringLiteral("%1m").arg(minutes);
    if (minutes == 0)
        return QStringLiteral("%1h").arg(hours);
    return QStringLiteral("%1h %2m").arg(hours).arg(minutes);
}

QString formattedClock(qint64 seconds, PadMinutes padMinutes) {
    const qint64 hours = seconds / secondsPerHour;
    const qint64 minutes = (seconds - hours * secondsPerHour) / secondsPerMinute;
    const qint64 rest = seconds % secondsPerMinute;

    if (seconds >= secondsPerHour)
        return QStringLiteral("%1:%2:%3")
            .arg(QString::number(hours), twoDigits(minutes), twoDigits(rest));
    const auto shownMinutes =
        padMinutes == PadMinutes::yes ? twoDigits(minutes) : QString::number(minutes);
    return QStringLiteral("%1:%2").arg(shownMinutes, twoDigits(rest));
}

} // namespace tolvar
