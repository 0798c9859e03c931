#include "Gallery/SampleRecords.h"

#include <QDateTime>

#include <utility>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

constexpr Seconds minute = 60;
constexpr Seconds hour = 3600;
constexpr Seconds day = 24 * hour;

using Names = std::vector<QString>;

struct Plan {
    QString goal = {};
    Seconds duration = 25 * minute;
    Seconds ago = 0;
    std::optional<Seconds> focused = {};
    Names apps = {};
    Names sites = {};
};

FocusSession session(const Plan& plan) {
    FocusSession made;
    made.goal = plan.goal;
    made.duration = plan.duration;
    made.startTime = sampleNow() - plan.ago;
    made.focusedTime = plan.focused;
    if (plan.focused)
        made.outcome =
            *plan.focused >= plan.duration ? SessionOutcome::completed : SessionOutcome::endedEarly;
    made.blockedApps = plan.apps;
    made.blockedWebsites = plan.sites;
    return made;
}

FocusPreset preset(const QString& name, const Plan& plan) {
    return FocusPreset::from(session(plan), name);
}

Names manySites() {
    Names sites;
    for (int number = 1; number <= 120; ++number)
        sites.push_back(u"%1.org"_s.arg(number));
    return sites;
}

const Names news{u"news.org"_s, u"weather.org"_s, u"forum.org"_s};

} // namespace

Date sampleNow() {
    const QDateTime moment(QDate(2001, 1, 5), QTime(14, 30));
    return Date::fromEpoch(static_cast<Seconds>(moment.toSecsSinceEpoch()));
}

std::vector<FocusSession> sampleSessions() {
    return {session({.goal = u"Plan the quarter"_s,
                     .duration = hour,
                     .ago = 9 * day + 3 * hour,
                     .focused = hour,
                     .apps = {u"Chat"_s, u"Mail"_s}}),
            session({.goal = u"Read two papers"_s,
                     .duration = 45 * minute,
                     .ago = 3 * day + 5 * hour,
                     .focused = 45 * minute,
                     .sites = {u"news.org"_s}}),
            session({.goal = u"Answer mail"_s,
                     .ago = day + 4 * hour,
                     .focused = 11 * minute,
                     .apps = {u"Chat"_s, u"Music"_s},
                     .sites = news}),
            session({.goal = u"Draft the talk"_s,
                     .duration = 2 * hour,
                     .ago = 5 * hour + 10 * minute,
                     .focused = 2 * hour,
                     .apps = {u"Arcade"_s, u"Browser"_s, u"Chat"_s, u"Mail"_s, u"Music"_s},
                     .sites = news}),
            session({.goal = u"Write the second chapter"_s,
                     .ago = 40 * minute,
                     .focused = 25 * minute,
                     .apps = {u"Chat"_s, u"Mail"_s, u"Music"_s},
                     .sites = news})};
}

std::vector<FocusSession> oddSessions() {
    FocusSession undated = session({.goal = u"Sketch"_s, .apps = {u"Missing"_s, u"Gone"_s}});
    undated.startTime.reset();
    return {session({.goal = u"Everything that is not the second chapter of the book, and more"_s,
                     .duration = 10 * hour + 50 * minute,
                     .ago = 200 * day,
                     .focused = 10 * hour + 49 * minute,
                     .apps = {u"Arcade"_s, u"Browser"_s, u"Chat"_s, u"Mail"_s, u"Music"_s,
                              u"Notes"_s, u"Photos"_s},
                     .sites = manySites()}),
            session({.goal = {}, .ago = 2 * day, .focused = 0, .sites = {u"news.org"_s}}),
            session({.goal = u"Read"_s, .ago = minute, .focused = 25 * minute}), undated,
            session({.goal = u"כתיבת הפרק השני"_s,
                     .ago = hour,
                     .focused = 4 * minute,
                     .apps = {u"Chat"_s}})};
}

std::vector<FocusPreset> samplePresets() {
    return {
        preset(
            u"Deep work"_s,
            {.duration = 90 * minute, .apps = {u"Chat"_s, u"Mail"_s, u"Music"_s}, .sites = news}),
        preset(u"Read"_s, {.duration = 45 * minute}),
        preset(u"Everything that is not the second chapter of the book"_s,
               {.apps = {u"Arcade"_s, u"Browser"_s, u"Chat"_s, u"Mail"_s, u"Music"_s, u"Notes"_s},
                .sites = {u"news.org"_s}})};
}

} // namespace tolvar::gallery
