#include "Platform/Linux/Desktop/XdgInstalledApplications.h"

#include "Extensions/TextOrder.h"

#include <algorithm>

namespace tolvar {

std::vector<InstalledApplication> XdgInstalledApplications::list() const {
    std::vector<InstalledApplication> applications;
    for (auto& entry : m_entries.load())
        if (!entry.noDisplay && entry.appliesHere)
            applications.push_back({entry.id, entry.name, entry.iconName});
    // Stable, so that entries of one name stay in the order of their ids.
    std::stable_sort(applications.begin(), applications.end(),
                     [](const auto& left, const auto& right) {
                         return precedesByScalars(left.displayName, right.displayName);
                     });
    return applications;
}

} // namespace tolvar
