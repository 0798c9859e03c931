#pragma once

#include "Platform/Interfaces/UpdateSource.h"

#include <utility>

namespace tolvar::test {

/// A source of updates that is set by hand and counts what is asked of it.
class FakeUpdateSource final : public UpdateSource {
public:
    bool available = true;
    bool automatic = false;
    bool canCheck = true;
    int checks = 0;
    bool isObserved() const { return m_changed != nullptr; }

    /// A check begins or ends.
    void setCanCheck(bool can) {
        canCheck = can;
        m_changed(can);
    }

    bool isAvailable() const override { return available; }
    bool automaticallyChecksForUpdates() const override { return automatic; }
    void setAutomaticallyChecksForUpdates(bool checksByItself) override {
        automatic = checksByItself;
    }
    void checkForUpdates() override { ++checks; }
    Subscription observeCanCheckForUpdates(std::function<void(bool)> changed) override {
        m_changed = std::move(changed);
        m_changed(canCheck);
        return Subscription([this] { m_changed = nullptr; });
    }

private:
    std::function<void(bool)> m_changed;
};

} // namespace tolvar::test
