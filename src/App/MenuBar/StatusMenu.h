#pragma once

#include "Models/FocusSession.h"
#include "Platform/Interfaces/StatusItem.h"

#include <optional>
#include <vector>

namespace tolvar {

enum class UpdateCheck { possible, impossible };

/// The status item's menu: the same entries at all times, those without effect disabled. A session
/// that is not active, or has no time left, counts as none (`remaining` in seconds).
std::vector<StatusMenuEntry> statusMenu(const std::optional<FocusSession>& session,
                                        Seconds remaining, UpdateCheck updateCheck);

} // namespace tolvar
