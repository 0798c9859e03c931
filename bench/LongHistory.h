#pragma once

#include "../tests/Support/SampleHistory.h"

namespace tolvar::bench {

/// A history that nobody outgrows: ten sessions a day for ten years.
inline constexpr std::size_t longHistorySize = 36'000;

/// Made once for all benchmarks.
inline const std::vector<FocusSession>& longHistory() {
    static const auto history = test::sampleHistory(longHistorySize);
    return history;
}

} // namespace tolvar::bench
