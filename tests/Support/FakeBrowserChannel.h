#pragma once

#include "Platform/Interfaces/BrowserChannel.h"
#include "Support/Journal.h"

#include <map>
#include <memory>

namespace tolvar::test {

/// Browsers with windows that each show one tab, played by the test. Browsers are asked in the
/// order they were first named. Journal lines: "watch tabs", "unwatch tabs", "read BROWSER",
/// "redirect BROWSER: TAB, TAB".
class FakeBrowserChannel final : public BrowserChannel {
public:
    explicit FakeBrowserChannel(Journal& journal)
        : m_journal(journal) {}

    /// What the windows of a browser show from now on; it runs from now on.
    void show(const QString& browser, const std::vector<ActiveTab>& tabs);
    void quit(const QString& browser) { browserNamed(browser).isRunning = false; }
    /// The browser does not answer any more.
    void refuseReading(const QString& browser) { browserNamed(browser).isReadable = false; }
    void allowReading(const QString& browser) { browserNamed(browser).isReadable = true; }
    /// Its tabs stay where they are when redirected.
    void refuseRedirects(const QString& browser) { browserNamed(browser).isRedirectable = false; }
    /// Says that shown tabs changed.
    void announceChange();
    /// Says so at each redirect, while it is being made.
    void announceRedirects() { m_announcesRedirects = true; }

    std::vector<ActiveTab> shownTabs(const QString& browser) { return browserNamed(browser).tabs; }
    bool isObserved() const { return !m_observers->empty(); }

    std::vector<QString> runningBrowsers() const override;
    std::optional<std::vector<ActiveTab>> activeTabs(const QString& browser) override;
    void redirect(const std::vector<ActiveTab>& tabs, const QString& browser) override;
    Subscription observeChanges(std::function<void()> changed) override;

private:
    struct Browser {
        QString name;
        std::vector<ActiveTab> tabs;
        bool isRunning = true;
        bool isReadable = true;
        bool isRedirectable = true;
    };
    using Observers = std::map<int, std::function<void()>>;

    Browser& browserNamed(const QString& name);

    Journal& m_journal;
    std::vector<Browser> m_browsers;
    /// Outlives the channel while subscriptions to it are held.
    std::shared_ptr<Observers> m_observers = std::make_shared<Observers>();
    int m_nextId = 0;
    bool m_announcesRedirects = false;
};

} // namespace tolvar::test
