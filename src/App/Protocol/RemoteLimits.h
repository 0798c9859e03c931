#pragma once

#include "Extensions/Date.h"

namespace tolvar::RemoteLimits {

/// The shortest session and the shortest extension that can be asked for.
inline constexpr Seconds minimumDuration = 1;
/// The longest session that can be asked for, its extensions included: a year, far more than any
/// session needs.
inline constexpr Seconds maximumDuration = 366.0 * 24 * 3600;

} // namespace tolvar::RemoteLimits
