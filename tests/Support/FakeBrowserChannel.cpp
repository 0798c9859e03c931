#include "Support/FakeBrowserChannel.h"

#include <QStringList>

#include <algorithm>

namespace tolvar::test {

namespace {

using namespace Qt::StringLiterals;

} // namespace

void FakeBrowserChannel::show(const QString& browser, const std::vector<ActiveTab>& tabs) {
    browserNamed(browser).tabs = tabs;
    browserNamed(browser).isRunning = true;
}

void FakeBrowserChannel::announceChange() {
    const auto observers = *m_observers;
    for (const auto& [id, changed] : observers)
        if (m_observers->contains(id))
            changed();
}

std::vector<QString> FakeBrowserChannel::runningBrowsers() const {
    std::vector<QString> names;
    for (const auto& browser : m_browsers)
        if (browser.isRunning)
            names.push_back(browser.name);
    return names;
}

std::optional<std::vector<ActiveTab>> FakeBrowserChannel::activeTabs(const QString& browser) {
    m_journal.record(u"read "_s + browser);
    const auto& asked = browserNamed(browser);
    return asked.isReadable ? std::optional(asked.tabs) : std::nullopt;
}

void FakeBrowserChannel::redirect(const std::vector<ActiveTab>& tabs, const QString& browser) {
    QStringList specifiers;
    for (const auto& tab : tabs)
        specifiers.append(tab.specifier);
    m_journal.record(u"redirect %1: %2"_s.arg(browser, specifiers.join(", "_L1)));

    auto& asked = browserNamed(browser);
    for (auto& tab : asked.tabs)
        if (asked.isRedirectable && std::find(tabs.begin(), tabs.end(), tab) != tabs.end())
            tab.url = u"about:blank"_s;
    if (m_announcesRedirects)
        announceChange();
}

Subscription FakeBrowserChannel::observeChanges(std::function<void()> changed) {
    m_journal.record(u"watch tabs"_s);
    const int id = m_nextId++;
    m_observers->emplace(id, std::move(changed));
    return Subscription([this, observers = std::weak_ptr(m_observers), id] {
        if (const auto alive = observers.lock()) {
            alive->erase(id);
            m_journal.record(u"unwatch tabs"_s);
        }
    });
}

FakeBrowserChannel::Browser& FakeBrowserChannel::browserNamed(const QString& name) {
    const auto found = std::find_if(m_browsers.begin(), m_browsers.end(),
                                    [&](const auto& browser) { return browser.name == name; });
    if (found != m_browsers.end())
        return *found;
    return m_browsers.emplace_back(Browser{.name = name, .tabs = {}});
}

} // namespace tolvar::test
