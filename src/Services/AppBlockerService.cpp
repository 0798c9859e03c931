#include "Services/AppBlockerService.h"

#include "Extensions/TextOrder.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tolvar {

namespace {

constexpr std::chrono::seconds pollInterval(2);

} // namespace

AppBlockerService::AppBlockerService(const Environment& environment)
    : m_environment(environment) {
    const auto adopted = m_environment.workspace.hiddenByEarlierRun();
    m_hiddenApps.insert(adopted.begin(), adopted.end());
}

AppBlockerService::~AppBlockerService() {
    stopMonitoring();
    restoreAllApps();
}

void AppBlockerService::blockApp(const QString& name) {
    m_blockedApps.insert(name);
    startMonitoring();
    hideApplication(name);
}

void AppBlockerService::unblockAll() {
    // Watching ends first: a workspace may report a window as coming forward while it shows it
    // for us, and nothing may answer that by hiding it again.
    stopMonitoring();
    restoreAllApps();
    m_blockedApps.clear();
}

void AppBlockerService::restoreUnblockedApps() {
    std::erase_if(m_hiddenApps, [this](const ApplicationHandle& handle) {
        const auto application = m_environment.workspace.application(handle);
        if (application && isBlocked(*application))
            return false;
        if (application)
            m_environment.workspace.unhide(handle);
        return true;
    });
}

void AppBlockerService::startMonitoring() {
    if (m_isMonitoring)
        return;
    m_isMonitoring = true;
    m_monitorTimer =
        m_environment.timers.repeat(pollInterval, [this] { checkFrontmostApplication(); });
    const auto react = [this](const RunningApplication& application) {
        applicationDidLaunchOrActivate(application);
    };
    m_workspaceSubscription =
        m_environment.workspace.observe({.launched = react, .activated = react});
}

void AppBlockerService::stopMonitoring() {
    m_isMonitoring = false;
    m_monitorTimer.reset();
    m_workspaceSubscription.reset();
    m_pendingAlerts.clear();
    m_alertTask.reset();
}

void AppBlockerService::hideApplication(const QString& name) {
    for (const auto& application : m_environment.workspace.runningApplications())
        if (application.localizedName == name && isBlocked(application))
            hideApplication(application);
}

void AppBlockerService::hideApplication(const RunningApplication& application) {
    auto& workspace = m_environment.workspace;
    if (!application.isHidden) {
        m_hiddenApps.insert(application.handle);
        workspace.hide(application.handle);
    }
    // Whether hiding took the focus away is known only afterwards.
    const auto present = workspace.application(application.handle);
    if (present && present->isActive)
        workspace.activateSelf();
}

void AppBlockerService::restoreAllApps() {
    for (const auto& handle : std::exchange(m_hiddenApps, {}))
        if (m_environment.workspace.application(handle))
            m_environment.workspace.unhide(handle);
}

bool AppBlockerService::isBlocked(const RunningApplication& application) const {
    const bool isOwnProcess = application.processIdentifier != 0 &&
                              application.processIdentifier == m_environment.processIdentifier;
    const bool isOwnBundle = !application.bundleIdentifier.isEmpty() &&
                             application.bundleIdentifier == m_environment.bundleIdentifier;
    return !application.localizedName.isEmpty() &&
           m_blockedApps.contains(application.localizedName) && !isOwnProcess && !isOwnBundle;
}

void AppBlockerService::checkFrontmostApplication() {
    if (const auto frontmost = m_environment.workspace.frontmostApplication())
        applicationDidLaunchOrActivate(*frontmost);
}

void AppBlockerService::applicationDidLaunchOrActivate(const RunningApplication& application) {
    if (!isBlocked(application))
        return;
    hideApplication(application);
    showBlockedNotification(application.localizedName);
}

void AppBlockerService::showBlockedNotification(const QString& name) {
    m_pendingAlerts.push_back(name);
    if (!m_alertTask)
        scheduleAlert();
}

void AppBlockerService::scheduleAlert() {
    m_alertTask =
        m_environment.timers.once(std::chrono::milliseconds(0), [this] { presentNextAlert(); });
}

void AppBlockerService::presentNextAlert() {
    const auto name = m_pendingAlerts.front();
    m_pendingAlerts.pop_front();
    m_alertTask.reset();
    if (!m_pendingAlerts.empty())
        scheduleAlert();
    m_environment.alert.presentBlocked(name, BlockTarget::app);
}

std::vector<QString> getInstalledApplications(const InstalledApplications& applications,
                                              const QString& ownName) {
    std::vector<QString> names;
    for (const auto& application : applications.list())
        if (application.displayName != ownName)
            names.push_back(application.displayName);
    std::sort(names.begin(), names.end(), precedesByScalars);
    return names;
}

} // namespace tolvar
