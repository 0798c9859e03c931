#pragma once

#include "Models/FocusSession.h"

#include <cstddef>
#include <vector>

namespace tolvar::test {

/// Ended sessions as years of use leave them, oldest first and the same at every call: goals in
/// several languages, extended and paused sessions, one to three categories, custom applications
/// and websites. 36,000 of them make about 25 MB of JSON.
std::vector<FocusSession> sampleHistory(std::size_t count);

} // namespace tolvar::test
