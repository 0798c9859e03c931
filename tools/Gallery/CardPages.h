#pragma once

#include "Gallery/Pages.h"

#include <vector>

namespace tolvar::gallery {

/// The cards of presets and history, each kind at its extremes; the pull above the history, and the
/// sheet that asks for a goal.
std::vector<Page> cardPages();

} // namespace tolvar::gallery
