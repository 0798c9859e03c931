#pragma once

#include "App/Protocol/RemoteRecords.h"
#include "App/Protocol/StatusReport.h"
#include "Models/FocusPreset.h"
#include "Models/FocusSession.h"

#include <QStringList>

namespace tolvar {

/// Everything that a session blocks, its categories resolved; websites as the blocker compares
/// them.
struct ResolvedBlocks {
    QStringList apps;
    QStringList websites;

    static ResolvedBlocks of(const FocusSession& session);
};

/// How a running session, or none (null), stands at `now`; seconds are rounded to milliseconds.
/// `blocks` are the session's own.
StatusReport statusReport(const FocusSession* session, const ResolvedBlocks& blocks, Date now);

/// The upper-case text of an id, without braces.
QString idText(const QUuid& id);

/// The focused time is rounded to milliseconds.
HistoryEntry historyEntry(const FocusSession& session);
PresetEntry presetEntry(const FocusPreset& preset);
CategoryEntry categoryEntry(const BlockCategory& category);

} // namespace tolvar
