#pragma once

#include "Models/FocusPreset.h"
#include "Models/FocusSession.h"

#include <vector>

namespace tolvar::gallery {

/// Friday, 5 January 2001, half past two in the afternoon wherever the user is: the moment at which
/// the sample records are seen.
Date sampleNow();

/// Sessions as they may be found in a history, oldest first; the last ones began today.
std::vector<FocusSession> sampleSessions();
/// Each at an extreme: a goal without an end, none at all, nothing blocked, no outcome.
std::vector<FocusSession> oddSessions();
std::vector<FocusPreset> samplePresets();

} // namespace tolvar::gallery
