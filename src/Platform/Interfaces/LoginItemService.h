#pragma once

#include <QString>

#include <optional>

namespace tolvar {

enum class LoginItemStatus {
    notRegistered,
    enabled,
    /// Registered by us, but switched off in the system's own settings.
    requiresApproval,
    /// There is no program to start.
    notFound,
};

/// Starting this application when its user logs in.
class LoginItemService {
public:
    virtual ~LoginItemService() = default;

    /// Read afresh at each call.
    virtual LoginItemStatus status() const = 0;
    /// Returns the error's description when it fails.
    [[nodiscard]] virtual std::optional<QString> registerItem() = 0;
    /// Returns the error's description when it fails.
    [[nodiscard]] virtual std::optional<QString> unregisterItem() = 0;
};

} // namespace tolvar
