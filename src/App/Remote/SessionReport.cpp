#include "App/Remote/SessionReport.h"

#include "Models/BlockingHelpers.h"
#include "Services/WebsiteBlockerService.h"

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

using State = StatusReport::State;

QStringList list(const std::vector<QString>& items) {
    return {items.begin(), items.end()};
}

Seconds toMilliseconds(Seconds seconds) {
    return std::round(seconds * 1000) / 1000;
}

QStringList resolved(const std::vector<QString>& direct, const FocusSession& session,
                     std::vector<QString> BlockCategory::*items) {
    return list(BlockingHelpers::resolvedItems(direct, session.blockCategories, items));
}

/// What the blocker makes of the session's websites: normalised, each once, blank ones left out.
QStringList hosts(const QStringList& websites) {
    QStringList hosts;
    for (const QString& website : websites)
        if (const QString host = WebsiteBlockerService::normalizeDomain(website); !host.isEmpty())
            hosts.append(host);
    hosts.sort();
    hosts.removeDuplicates();
    return hosts;
}

} // namespace

ResolvedBlocks ResolvedBlocks::of(const FocusSession& session) {
    return {resolved(session.blockedApps, session, &BlockCategory::apps),
            hosts(resolved(session.blockedWebsites, session, &BlockCategory::websites))};
}

StatusReport statusReport(const FocusSession* session, const ResolvedBlocks& blocks, Date now) {
    if (!session) {
        StatusReport ready;
        ready.state = State::ready;
        return ready;
    }
    return {
        .state = session->isPaused ? State::paused : State::focusing,
        .goal = session->goal,
        .duration = session->duration,
        .remaining = toMilliseconds(session->remainingTime(now)),
        .elapsed = toMilliseconds(session->elapsedFocusTime(now)),
        .pauseRemaining = session->isPaused ? session->pauseRemainingSeconds(now) : 0,
        .pausesLeft =
            std::max(FocusSession::maximumPauseCount - session->pauseCount.value_or(0), 0),
        .blockedApps = blocks.apps,
        .blockedWebsites = blocks.websites,
    };
}

QString idText(const QUuid& id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

HistoryEntry historyEntry(const FocusSession& session) {
    const auto moment = [](const std::optional<Date>& date) {
        return date.value_or(Date()).sinceEpoch();
    };
    const bool isCompleted = session.outcome == SessionOutcome::completed;
    return {
        .id = idText(session.id),
        .goal = session.goal,
        .start = moment(session.startTime),
        .end = moment(session.endTime),
        .duration = session.duration,
        .focusedTime = toMilliseconds(session.focusedTime.value_or(0)),
        .outcome = isCompleted ? QStringLiteral("completed") : QStringLiteral("endedEarly"),
        .blockedApps = resolved(session.blockedApps, session, &BlockCategory::apps),
        .blockedWebsites = resolved(session.blockedWebsites, session, &BlockCategory::websites),
    };
}

PresetEntry presetEntry(const FocusPreset& preset) {
    return {
        .id = idText(preset.id),
        .name = preset.name,
        .duration = preset.duration,
        .categories = list(preset.categoryIDs),
        .apps = list(preset.customApps),
        .websites = list(preset.customWebsites),
    };
}

CategoryEntry categoryEntry(const BlockCategory& category) {
    return {
        .id = category.id,
        .name = category.name,
        .apps = list(category.apps),
        .websites = list(category.websites),
    };
}

} // namespace tolvar
