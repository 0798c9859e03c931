#pragma once

namespace tolvar::motion {

/// What takes less than this many seconds is done at once.
inline constexpr double shortest = 1e-6;
/// No single movement or delay takes more than this many seconds; only a repetition lasts longer.
inline constexpr double longest = 3600;
/// Values lie within this distance of 0, so that no difference or speed overflows.
inline constexpr double farthest = 1e100;

/// A duration or delay in seconds as it is used: 0 for one that is not finite, negative or shorter
/// than `shortest`; never more than `longest`.
double usableSeconds(double seconds);

/// Whether `value` is a number within `farthest`.
bool isUsableValue(double value);

} // namespace tolvar::motion
