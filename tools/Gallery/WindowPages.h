#pragma once

#include "Gallery/Pages.h"

#include <vector>

namespace tolvar::gallery {

/// The whole window: its start screen as it is found and as it is filled in, its other tabs, and a
/// session.
std::vector<Page> windowPages();

} // namespace tolvar::gallery
