#pragma once

#include "Models/FocusSession.h"
#include "Views/Presets/BlockedSummaryRow.h"

#include <QLocale>
#include <QString>

#include <optional>

namespace tolvar {

class BlockedSummaries;

/// What a history card says of its session.
struct HistoryCardContent {
    /// On one line; empty for a session without one.
    QString goal;
    BlockedSummaryRow blocked;
    /// Relative to the day it was made on; empty for a session that never started.
    QString date;
    /// The focused time against the planned.
    QString focused;
    std::optional<SessionOutcome> outcome;

    static HistoryCardContent of(const FocusSession& session, BlockedSummaries& summaries, Date now,
                                 const QLocale& locale = QLocale());

    /// What stands where the goal does.
    QString title() const;
    /// How it ended, in words; empty where that is not known.
    QString outcomeText() const;
    /// All but the title, in words.
    QString spokenText() const;
};

} // namespace tolvar
