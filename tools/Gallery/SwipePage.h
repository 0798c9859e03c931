#pragma once

#include "Gallery/Pages.h"

namespace tolvar::gallery {

/// Rows that are swiped aside, closed, on their way and open, and the menu of their actions.
Page swipePage();

} // namespace tolvar::gallery
