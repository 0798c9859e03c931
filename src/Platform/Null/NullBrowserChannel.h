#pragma once

#include "Platform/Interfaces/BrowserChannel.h"

namespace tolvar {

/// No browser can be reached.
class NullBrowserChannel final : public BrowserChannel {
public:
    std::vector<QString> runningBrowsers() const override { return {}; }
    std::optional<std::vector<ActiveTab>> activeTabs(const QString&) override { return {}; }
    void redirect(const std::vector<ActiveTab>&, const QString&) override {}
    Subscription observeChanges(std::function<void()>) override { return {}; }
};

} // namespace tolvar
