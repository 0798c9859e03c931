#include "Services/WebsiteBlockerService.h"

#include "Extensions/HostNames.h"

#include <QScopedValueRollback>
#include <QStringView>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tolvar {

namespace {

constexpr std::chrono::seconds pollInterval(2);

/// Whether a host is the domain or one of its subdomains. Its cost does not grow with the host,
/// which can be as long as a page likes.
bool isWithin(QStringView host, QStringView domain) {
    return host.endsWith(domain) &&
           (host.size() == domain.size() || host.chopped(domain.size()).endsWith(u'.'));
}

} // namespace

WebsiteBlockerService::WebsiteBlockerService(const Environment& environment)
    : m_environment(environment) {}

void WebsiteBlockerService::blockWebsite(const QString& site) {
    auto host = normalizeDomain(site);
    // Tabs are compared without the dot of the root zone.
    if (host.endsWith(u'.'))
        host.chop(1);
    if (host.isEmpty())
        return;
    m_blockedWebsites.insert(std::move(host));
    updateMonitoring();
}

void WebsiteBlockerService::unblockAll() {
    m_blockedWebsites.clear();
    m_flaggedTabs.clear();
    updateMonitoring();
}

QString WebsiteBlockerService::normalizeDomain(const QString& text) {
    return normalizedHost(text);
}

void WebsiteBlockerService::updateMonitoring() {
    if (m_blockedWebsites.empty()) {
        m_monitoringTimer.reset();
        m_tabChanges.reset();
    } else if (!m_monitoringTimer) {
        m_monitoringTimer =
            m_environment.timers.repeat(pollInterval, [this] { checkAllBrowsers(); });
        m_tabChanges = m_environment.browsers.observeChanges([this] { checkAllBrowsers(); });
    }
}

void WebsiteBlockerService::checkAllBrowsers() {
    // A channel may report the change that a redirect of ours is: what that leaves to be done, the
    // next look does.
    if (m_isChecking)
        return;
    const QScopedValueRollback checking(m_isChecking, true);
    for (const auto& browser : m_environment.browsers.runningBrowsers()) {
        if (const auto host = blockTabs(browser))
            m_environment.alert.presentBlocked(*host, BlockTarget::site);
        if (m_blockedWebsites.empty())
            return;
    }
}

std::optional<QString> WebsiteBlockerService::blockTabs(const QString& browser) {
    const auto tabs = m_environment.browsers.activeTabs(browser);
    if (!tabs)
        return std::nullopt;

    std::vector<ActiveTab> blockedTabs;
    std::optional<QString> newlyBlocked;
    auto& flagged = m_flaggedTabs[browser];
    for (const auto& tab : *tabs)
        if (auto host = blockedHost(tab)) {
            blockedTabs.push_back(tab);
            if (!newlyBlocked && !flagged.contains(tab))
                newlyBlocked = std::move(host);
        }

    flagged = {blockedTabs.begin(), blockedTabs.end()};
    if (!blockedTabs.empty())
        m_environment.browsers.redirect(blockedTabs, browser);
    return newlyBlocked;
}

std::optional<QString> WebsiteBlockerService::blockedHost(const ActiveTab& tab) const {
    const auto host = hostOf(tab.url);
    const auto found = std::find_if(m_blockedWebsites.begin(), m_blockedWebsites.end(),
                                    [&](const auto& domain) { return isWithin(host, domain); });
    return found == m_blockedWebsites.end() ? std::nullopt : std::optional(*found);
}

} // namespace tolvar
