#pragma once

#include "Models/BlockCategory.h"

#include <QString>

#include <vector>

namespace tolvar::BlockingHelpers {

/// Everything that a choice blocks: the items of the categories (their `apps` or `websites`, as
/// `list` says) and the directly chosen ones, without exact duplicates, sorted by Unicode scalars.
std::vector<QString> resolvedItems(const std::vector<QString>& direct,
                                   const std::vector<BlockCategory>& categories,
                                   std::vector<QString> BlockCategory::*list);

} // namespace tolvar::BlockingHelpers
