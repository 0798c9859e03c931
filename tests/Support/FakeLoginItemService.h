#pragma once

#include "Platform/Interfaces/LoginItemService.h"

namespace tolvar::test {

/// A login item that is set by hand and counts what is asked of it.
class FakeLoginItemService final : public LoginItemService {
public:
    LoginItemStatus current = LoginItemStatus::notRegistered;
    /// What registering and unregistering fail with.
    std::optional<QString> error;
    int registrations = 0;
    int unregistrations = 0;

    LoginItemStatus status() const override { return current; }
    std::optional<QString> registerItem() override {
        ++registrations;
        if (!error)
            current = LoginItemStatus::enabled;
        return error;
    }
    std::optional<QString> unregisterItem() override {
        ++unregistrations;
        if (!error)
            current = LoginItemStatus::notRegistered;
        return error;
    }
};

} // namespace tolvar::test
