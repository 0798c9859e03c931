#pragma once

#include "Platform/Interfaces/LoginItemService.h"

namespace tolvar {

/// Programs cannot be started at login here.
class NullLoginItemService final : public LoginItemService {
public:
    LoginItemStatus status() const override { return LoginItemStatus::notFound; }
    std::optional<QString> registerItem() override {
        return QStringLiteral("Opening at login is not available here");
    }
    std::optional<QString> unregisterItem() override { return std::nullopt; }
};

} // namespace tolvar
