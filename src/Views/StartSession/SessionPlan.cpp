#include "Views/StartSession/SessionPlan.h"

#include <QStringList>

namespace tolvar {

using namespace Qt::StringLiterals;

void SessionPlan::toggleCategory(const QString& id) {
    if (selectedCategories.erase(id) == 0)
        selectedCategories.insert(id);
}

std::optional<FocusSession>
SessionPlan::session(const std::vector<BlockCategory>& categories) const {
    FocusSession session;
    session.goal = goal.trimmed();
    if (session.goal.isEmpty())
        return std::nullopt;
    session.duration = selectedDuration;
    session.blockedApps.assign(customApps.begin(), customApps.end());
    for (const BlockCategory& category : categories)
        if (selectedCategories.contains(category.id))
            session.blockCategories.push_back(category);
    session.pauseCount.reset();
    return session;
}

QString customAppsLabel(const std::set<QString>& apps) {
    if (apps.empty())
        return u"Block specific apps"_s;
    return u"Blocking "_s + QStringList(apps.begin(), apps.end()).join(u", "_s);
}

QString moreAppsText(std::size_t count, std::size_t shown) {
    return count > shown ? u"and %1 more"_s.arg(count - shown) : QString();
}

} // namespace tolvar
