#pragma once

#include "Extensions/Subscription.h"
#include "Platform/Interfaces/BlockAlert.h"
#include "Platform/Interfaces/BrowserChannel.h"
#include "Platform/Interfaces/TimerService.h"

#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <set>

namespace tolvar {

/// Sends shown tabs on blocked websites to a blank page, in every browser that can be reached.
///
/// Looks every 2 s while something is blocked, and when the browsers say that tabs changed. A tab
/// that stays on a blocked page is sent away again at every look, but told of once.
class WebsiteBlockerService {
public:
    /// What the service needs; all outlive it.
    struct Environment {
        BrowserChannel& browsers;
        TimerService& timers;
        BlockAlert& alert;
    };

    explicit WebsiteBlockerService(const Environment& environment);
    WebsiteBlockerService(const WebsiteBlockerService&) = delete;
    WebsiteBlockerService& operator=(const WebsiteBlockerService&) = delete;

    /// Blocks a host and its subdomains; a text that normalises to nothing is ignored. Takes
    /// effect at the next look, at most 2 s later.
    void blockWebsite(const QString& site);
    /// Forgets every blocked host and stops polling.
    void unblockAll();

    /// The host that a text names: lower case, without scheme, user, port, path and one leading
    /// "www."; an internationalised name in its ASCII spelling (RFC 5891 A-labels), so that every
    /// spelling of a host compares equal. A text in which no host can be found is only
    /// lower-cased and rid of one leading "www."; a blank one gives "".
    static QString normalizeDomain(const QString& text);

    const std::set<QString>& blockedWebsites() const { return m_blockedWebsites; }

private:
    void updateMonitoring();
    void checkAllBrowsers();
    std::optional<QString> blockTabs(const QString& browser);
    std::optional<QString> blockedHost(const ActiveTab& tab) const;

    Environment m_environment;
    std::set<QString> m_blockedWebsites;
    std::unique_ptr<Timer> m_monitoringTimer;
    Subscription m_tabChanges;
    bool m_isChecking = false;
    /// The blocked tabs found in each browser at the last look.
    std::map<QString, std::set<ActiveTab>> m_flaggedTabs;
};

} // namespace tolvar
