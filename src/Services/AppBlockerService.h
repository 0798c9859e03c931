#pragma once

#include "Extensions/Subscription.h"
#include "Platform/Interfaces/BlockAlert.h"
#include "Platform/Interfaces/InstalledApplications.h"
#include "Platform/Interfaces/TimerService.h"
#include "Platform/Interfaces/Workspace.h"

#include <QString>

#include <deque>
#include <memory>
#include <set>
#include <vector>

namespace tolvar {

/// Keeps blocked applications out of the user's way: hides them when they come forward, tells the
/// user, and shows exactly those again when the blocking ends. Nothing is terminated.
///
/// Applications are matched by display name alone, exactly and case-sensitively.
class AppBlockerService {
public:
    /// What the service needs from the desktop and from this program; all outlive the service.
    struct Environment {
        Workspace& workspace;
        TimerService& timers;
        BlockAlert& alert;
        /// Our own identifier: an application bearing it is never hidden.
        QString bundleIdentifier;
        qint64 processIdentifier = 0;
    };

    /// Takes charge of what an earlier run of the program hid and could not show any more.
    explicit AppBlockerService(const Environment& environment);
    /// Ends the monitoring and shows what is still hidden.
    ~AppBlockerService();
    AppBlockerService(const AppBlockerService&) = delete;
    AppBlockerService& operator=(const AppBlockerService&) = delete;

    /// Blocks the application with this display name from now on; running ones vanish silently.
    void blockApp(const QString& name);
    /// Shows every application that this service hid or took charge of, forgets all blocks and
    /// alerts not yet shown, and stops monitoring.
    void unblockAll();
    /// Shows what an earlier run hid and no present block concerns.
    void restoreUnblockedApps();

    const std::set<QString>& blockedApps() const { return m_blockedApps; }
    bool isMonitoring() const { return m_isMonitoring; }

private:
    void startMonitoring();
    void stopMonitoring();
    void hideApplication(const QString& name);
    void hideApplication(const RunningApplication& application);
    void restoreAllApps();
    bool isBlocked(const RunningApplication& application) const;
    void checkFrontmostApplication();
    void applicationDidLaunchOrActivate(const RunningApplication& application);
    void showBlockedNotification(const QString& name);
    void scheduleAlert();
    void presentNextAlert();

    Environment m_environment;
    std::set<QString> m_blockedApps;
    std::unique_ptr<Timer> m_monitorTimer;
    bool m_isMonitoring = false;
    std::set<ApplicationHandle> m_hiddenApps;
    Subscription m_workspaceSubscription;
    /// Names the user has yet to be told of; `m_alertTask` runs while there are any.
    std::deque<QString> m_pendingAlerts;
    std::unique_ptr<Timer> m_alertTask;
};

/// The display names of the installed applications without our own, sorted in Unicode scalar
/// order; a name that two entries share stands twice.
std::vector<QString> getInstalledApplications(const InstalledApplications& applications,
                                              const QString& ownName);

} // namespace tolvar
