#include "Models/PresetName.h"

#include "Extensions/LocalTime.h"

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

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
