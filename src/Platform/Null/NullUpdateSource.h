#pragma once

#include "Platform/Interfaces/UpdateSource.h"

namespace tolvar {

/// No feed of newer versions.
class NullUpdateSource final : public UpdateSource {
public:
    bool isAvailable() const override { return false; }
    bool automaticallyChecksForUpdates() const override { return false; }
    void setAutomaticallyChecksForUpdates(bool) override {}
    void checkForUpdates() override {}
    Subscription observeCanCheckForUpdates(std::function<void(bool)>) override { return {}; }
};

} // namespace tolvar
