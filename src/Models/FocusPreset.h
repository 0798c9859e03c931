#pragma once

#include "Models/FocusSession.h"

namespace tolvar {

/// A plan that sessions can be started from, saved from a session of the history.
struct FocusPreset {
    QUuid id = QUuid::createUuid();
    /// The session it was saved from.
    std::optional<QUuid> sourceSessionId;
    QString name;
    Seconds duration = 0;
    /// Ids of the block categories; looked up when a session is made, so that later changes of a
    /// category reach the preset.
    std::vector<QString> categoryIDs;
    std::vector<QString> customApps;
    std::vector<QString> customWebsites;

    /// A preset of the session's plan, with its final (extended) duration.
    static FocusPreset from(const FocusSession& session, const QString& name);

    /// Those of `available` that the preset names, in the order of `available`.
    std::vector<BlockCategory> categories(const std::vector<BlockCategory>& available) const;
    /// A new, not yet started session of this plan.
    FocusSession session(const QString& goal, const std::vector<BlockCategory>& available) const;

    bool operator==(const FocusPreset&) const = default;
};

} // namespace tolvar
