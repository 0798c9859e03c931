#include "Views/ActiveSession/DialReading.h"

#include "Extensions/DurationFormatting.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

constexpr int minute = 60;
constexpr int hour = 3600;
constexpr int minutesOfHour = 60;

/// Toward 0; 0 for what is no number.
int wholeSeconds(Seconds seconds) {
    constexpr double farthest = std::numeric_limits<int>::max();
    return std::isnan(seconds) ? 0 : static_cast<int>(std::clamp(seconds, -farthest, farthest));
}

QString counted(int count, const QString& unit) {
    return u"%1 %2%3"_s.arg(QString::number(count), unit, count == 1 ? u""_s : u"s"_s);
}

double elapsedPart(Seconds remaining, Seconds duration) {
    return duration > 0 ? std::clamp(1 - remaining / duration, 0.0, 1.0) : 0;
}

} // namespace

QString durationPhrase(Seconds duration) {
    const int seconds = wholeSeconds(duration);
    const int minutes = seconds / minute;
    if (seconds < hour)
        return counted(minutes, u"minute"_s);
    if (minutes % minutesOfHour == 0)
        return counted(minutes / minutesOfHour, u"hour"_s);
    return formattedCompact(seconds);
}

DialReading DialReading::of(const FocusSession& session, Date now) {
    const Seconds remaining = session.remainingTime(now);
    return {.remainingSeconds = wholeSeconds(std::ceil(std::max(remaining, 0.0))),
            .progress = elapsedPart(remaining, session.duration),
            .duration = session.duration,
            .isPaused = session.isPaused,
            .pauseRemainingSeconds = session.pauseRemainingSeconds(now)};
}

QString DialReading::clock() const {
    return formattedClock(remainingSeconds, PadMinutes::yes);
}

QString DialReading::runningCaption() const {
    return u"of "_s + durationPhrase(duration);
}

QString DialReading::pausedCaption() const {
    return u"Paused for "_s + formattedClock(pauseRemainingSeconds, PadMinutes::no);
}

} // namespace tolvar
