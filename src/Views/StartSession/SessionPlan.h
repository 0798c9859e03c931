#pragma once

#include "Models/FocusSession.h"

#include <QString>
#include <QStringView>

#include <array>
#include <optional>
#include <set>
#include <vector>

namespace tolvar {

/// What a person has chosen on the start screen so far.
struct SessionPlan {
    struct Length {
        QStringView title;
        Seconds seconds;
    };
    /// The lengths on offer, in the order of their keys.
    static constexpr std::array<Length, 6> durations{{{u"5m", 300},
                                                      {u"15m", 900},
                                                      {u"25m", 1500},
                                                      {u"45m", 2700},
                                                      {u"1h", 3600},
                                                      {u"2h", 7200}}};

    QString goal;
    Seconds selectedDuration = 1500;
    /// Ids of categories.
    std::set<QString> selectedCategories;
    /// Display names of applications.
    std::set<QString> customApps;

    void toggleCategory(const QString& id);
    /// A session to be started, with the chosen ones of `categories` in their order; ids without a
    /// category are left out. Nothing when the goal has only white space.
    std::optional<FocusSession> session(const std::vector<BlockCategory>& categories) const;

    bool operator==(const SessionPlan&) const = default;
};

/// What the row of single applications says: "Blocking " and their names, or what it is for while
/// there are none.
QString customAppsLabel(const std::set<QString>& apps);
/// "and 3 more" beside at most `shown` icons; empty when that shows them all.
QString moreAppsText(std::size_t count, std::size_t shown);

} // namespace tolvar
