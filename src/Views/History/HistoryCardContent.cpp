#include "Views/History/HistoryCardContent.h"

#include "Views/History/FocusedOfPlanned.h"
#include "Views/History/RelativeDate.h"
#include "Views/Presets/BlockedSummary.h"

#include <QStringList>

namespace tolvar {

using namespace Qt::StringLiterals;

HistoryCardContent HistoryCardContent::of(const FocusSession& session, BlockedSummaries& summaries,
                                          Date now, const QLocale& locale) {
    return {.goal = session.goal.simplified(),
            .blocked = BlockedSummaryRow::of(summaries.of(
                session.blockedApps, session.blockedWebsites, session.blockCategories)),
            .date = session.startTime ? relativeDate(*session.startTime, now, locale) : QString(),
            .focused = focusedOfPlanned(session.focusedTime, session.duration),
            .outcome = session.outcome};
}

QString HistoryCardContent::title() const {
    return goal.isEmpty() ? u"No goal"_s : goal;
}

QString HistoryCardContent::outcomeText() const {
    if (!outcome)
        return {};
    return *outcome == SessionOutcome::completed ? u"Completed"_s : u"Ended early"_s;
}

QString HistoryCardContent::spokenText() const {
    QStringList parts{outcomeText(), focused, date, blocked.spokenText()};
    parts.removeAll(QString());
    return parts.join(u". "_s);
}

} // namespace tolvar
