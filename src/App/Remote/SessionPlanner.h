#pragma once

#include "App/Protocol/RemoteError.h"
#include "Models/FocusPreset.h"
#include "Models/FocusSession.h"

#include <QString>
#include <QStringList>

#include <variant>
#include <vector>

namespace tolvar {

class InstalledApplications;
class Workspace;

/// Makes sessions of what people type: names are matched with what exists here.
class SessionPlanner {
public:
    struct Request {
        QString goal;
        Seconds duration = 0;
        /// Ids or names; case counts only where it makes a difference.
        QStringList categories;
        /// Display names or ids. One that is not known here is blocked as it is spelled.
        QStringList apps;
        /// Addresses or hosts.
        QStringList websites;
    };
    struct PresetRequest {
        QString goal;
        /// Name or id.
        QString preset;
        /// 0 for the preset's own.
        Seconds duration = 0;
    };
    struct Plan {
        FocusSession session;
        /// Sentences about what will not work as asked, without a full stop.
        QStringList warnings;
    };
    using Result = std::variant<Plan, RemoteError>;

    /// Both outlive the planner.
    SessionPlanner(const InstalledApplications& installed, const Workspace& workspace);

    Result plan(const Request& request, const std::vector<BlockCategory>& categories) const;
    Result plan(const PresetRequest& request, const std::vector<FocusPreset>& presets,
                const std::vector<BlockCategory>& categories) const;

private:
    /// Applications that were named, by the names that people see.
    struct Applications {
        std::vector<QString> names;
        QStringList unknown;
    };
    Applications applications(const QStringList& wanted) const;
    QStringList warnings(const FocusSession& session, const QStringList& unknownApps) const;

    const InstalledApplications& m_installed;
    const Workspace& m_workspace;
};

/// Absent when a session may be `duration` seconds long, or be extended by as much: between
/// `RemoteLimits::minimumDuration` and `RemoteLimits::maximumDuration`.
std::optional<RemoteError> durationError(Seconds duration);

} // namespace tolvar
