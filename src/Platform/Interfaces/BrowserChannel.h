#pragma once

#include "Extensions/Subscription.h"

#include <QString>

#include <functional>
#include <optional>
#include <tuple>
#include <vector>

namespace tolvar {

/// The tab that a browser window shows.
struct ActiveTab {
    /// Names the tab to its browser; stable while the tab lives.
    QString specifier;
    /// The address as the browser reported it.
    QString url;

    bool operator==(const ActiveTab&) const = default;
    bool operator<(const ActiveTab& other) const {
        return std::tie(specifier, url) < std::tie(other.specifier, other.url);
    }
};

/// The way to the browsers people use.
class BrowserChannel {
public:
    virtual ~BrowserChannel() = default;

    /// Identifiers of the supported browsers that run now, in the order they are to be asked.
    virtual std::vector<QString> runningBrowsers() const = 0;
    /// The shown tab of each window of a browser; nothing when the browser could not be asked.
    virtual std::optional<std::vector<ActiveTab>> activeTabs(const QString& browser) = 0;
    /// Sends the tabs to "about:blank".
    virtual void redirect(const std::vector<ActiveTab>& tabs, const QString& browser) = 0;

    /// Calls `changed` when the shown tabs of any browser may have changed. A channel that cannot
    /// tell never calls.
    [[nodiscard]] virtual Subscription observeChanges(std::function<void()> changed) = 0;
};

} // namespace tolvar
