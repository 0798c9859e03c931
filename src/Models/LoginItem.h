#pragma once

#include "Platform/Interfaces/LoginItemService.h"

namespace tolvar::LoginItem {

/// Turns opening at login on or off. A registration that waits for the user's approval counts as
/// on: enabling does not register again, disabling withdraws it. Returns the error's description
/// when the system refuses.
[[nodiscard]] std::optional<QString> setEnabled(LoginItemService& service, bool enabled);

/// Whether opening at login shows as on: enabled, or waiting for approval.
bool isOn(LoginItemStatus status);

} // namespace tolvar::LoginItem
