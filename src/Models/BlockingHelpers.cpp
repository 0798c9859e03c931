#include "Models/BlockingHelpers.h"

#include "Extensions/TextOrder.h"

#include <algorithm>

namespace tolvar {

std::vector<QString> BlockingHelpers::resolvedItems(const std::vector<QString>& direct,
                                                    const std::vector<BlockCategory>& categories,
                                                    std::vector<QString> BlockCategory::*list) {
    std::vector<QString> items;
    for (const auto& category : categories)
        items.insert(items.end(), (category.*list).begin(), (category.*list).end());
    items.insert(items.end(), direct.begin(), direct.end());
    std::sort(items.begin(), items.end(), precedesByScalars);
    items.erase(std::unique(items.begin(), items.end()), items.end());
    return items;
}

} // namespace tolvar
