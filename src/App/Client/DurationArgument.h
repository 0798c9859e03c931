#pragma once

#include "Extensions/Date.h"

#include <QString>

#include <optional>

namespace tolvar {

/// Reads a length of time as people type it: "25m", "1h30m", "90s", "1h 30m", or bare seconds
/// ("1500"). Units come in the order h, m, s, each at most once; the numbers are whole. Nothing
/// for anything else, for zero and for more than `RemoteLimits::maximumDuration`.
std::optional<Seconds> parseDuration(const QString& text);

} // namespace tolvar
