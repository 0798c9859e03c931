#pragma once

#include "Gallery/Pages.h"

#include <vector>

namespace tolvar::gallery {

/// The app picker, the rows of icons and the block alert, as they look with one thing or another.
std::vector<Page> pickerPages();

} // namespace tolvar::gallery
