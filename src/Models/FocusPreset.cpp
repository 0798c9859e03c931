#include "Models/FocusPreset.h"

#include <algorithm>
#include <iterator>

namespace tolvar {

FocusPreset FocusPreset::from(const FocusSession& session, const QString& name) {
    FocusPreset preset;
    preset.sourceSessionId = session.id;
    preset.name = name;
    preset.duration = session.duration;
    std::transform(session.blockCategories.begin(), session.blockCategories.end(),
                   std::back_inserter(preset.categoryIDs), [](const auto& it) { return it.id; });
    preset.customApps = session.blockedApps;
    preset.customWebsites = session.blockedWebsites;
    return preset;
}

std::vector<BlockCategory>
FocusPreset::categories(const std::vector<BlockCategory>& available) const {
    std::vector<BlockCategory> chosen;
    std::copy_if(available.begin(), available.end(), std::back_inserter(chosen),
                 [this](const BlockCategory& category) {
                     return std::find(categoryIDs.begin(), categoryIDs.end(), category.id) !=
                            categoryIDs.end();
                 });
    return chosen;
}

FocusSession FocusPreset::session(const QString& goal,
                                  const std::vector<BlockCategory>& available) const {
    FocusSession session;
    session.goal = goal;
    session.duration = duration;
    session.blockedApps = customApps;
    session.blockedWebsites = customWebsites;
    session.blockCategories = categories(available);
    return session;
}

} // namespace tolvar
