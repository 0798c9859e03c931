#include "App/Remote/SessionPlanner.h"

#include "App/Protocol/RemoteLimits.h"
#include "App/Remote/NameMatch.h"
#include "App/Remote/SessionReport.h"
#include "Models/BlockingHelpers.h"
#include "Models/CategoryStore.h"
#include "Platform/Interfaces/InstalledApplications.h"
#include "Platform/Interfaces/Workspace.h"
#include "Services/WebsiteBlockerService.h"

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;
using Kind = RemoteError::Kind;

QString quoted(const QString& text) {
    return u"“"_s + text + u"”"_s;
}

bool isBlank(const QString& text) {
    return text.trimmed().isEmpty();
}

std::optional<RemoteError> goalError(const QString& goal) {
    if (!isBlank(goal))
        return std::nullopt;
    return RemoteError{Kind::emptyGoal, u"a session needs a goal"_s};
}

/// "the categories are A, B"; the other way round when there are none.
template<typename Items, typename TextOf>
QString listing(const QString& what, const Items& items, TextOf textOf) {
    QStringList texts;
    for (const auto& item : items)
        texts.append(textOf(item));
    return texts.isEmpty() ? u"there are no "_s + what
                           : u"the %1 are %2"_s.arg(what, texts.join(u", "_s));
}

/// "Work", or "Work (ID)" where the name is not the id.
QString label(const BlockCategory& category) {
    if (category.name == category.id)
        return category.id;
    return category.name.isEmpty() ? category.id : category.name + u" ("_s + category.id + u')';
}

template<typename T>
using Choice = std::variant<T, RemoteError>;

Choice<BlockCategory> categoryNamed(const QString& wanted,
                                    const std::vector<BlockCategory>& categories) {
    const auto found = matches(
        categories, wanted, [](const BlockCategory& it) { return it.id; },
        [](const BlockCategory& it) { return it.name; });
    if (found.empty())
        return RemoteError{Kind::unknownCategory,
                           u"there is no category %1; %2"_s.arg(
                               quoted(wanted), listing(u"categories"_s, categories, label))};
    if (found.size() > 1)
        return RemoteError{
            Kind::ambiguousName,
            u"%1 categories are called %2; name one by its id: %3"_s.arg(
                QString::number(found.size()), quoted(wanted),
                listing(u"ids"_s, found, [](const BlockCategory* it) { return it->id; }))};
    return *found.front();
}

Choice<std::vector<BlockCategory>> chosenCategories(const QStringList& wanted,
                                                    const std::vector<BlockCategory>& categories) {
    std::vector<BlockCategory> chosen;
    for (const QString& name : wanted) {
        const auto choice = categoryNamed(name, categories);
        if (const auto* error = std::get_if<RemoteError>(&choice))
            return *error;
        const auto& category = std::get<BlockCategory>(choice);
        if (std::find(chosen.begin(), chosen.end(), category) == chosen.end())
            chosen.push_back(category);
    }
    return chosen;
}

Choice<FocusPreset> presetNamed(const QString& wanted, const std::vector<FocusPreset>& presets) {
    const auto found = matches(
        presets, wanted, [](const FocusPreset& it) { return idText(it.id); },
        [](const FocusPreset& it) { return it.name; });
    if (found.empty())
        return RemoteError{
            Kind::unknownPreset,
            u"there is no preset %1; %2"_s.arg(
                quoted(wanted), listing(u"presets"_s, presets,
                                        [](const FocusPreset& it) { return quoted(it.name); }))};
    if (found.size() > 1)
        return RemoteError{
            Kind::ambiguousName,
            u"%1 presets are called %2; name one by its id: %3"_s.arg(
                QString::number(found.size()), quoted(wanted),
                listing(u"ids"_s, found, [](const FocusPreset* it) { return idText(it->id); }))};
    return *found.front();
}

Choice<std::vector<QString>> hosts(const QStringList& websites) {
    std::vector<QString> hosts;
    for (const QString& website : websites) {
        const QString host = WebsiteBlockerService::normalizeDomain(website);
        if (!CategoryStore::isWebsite(host))
            return RemoteError{Kind::invalidWebsite, quoted(website) + u" is not a website"_s};
        if (std::find(hosts.begin(), hosts.end(), host) == hosts.end())
            hosts.push_back(host);
    }
    return hosts;
}

/// Everything that can be blocked by its name: what is installed, and what runs without being so.
std::vector<InstalledApplication> knownApplications(const InstalledApplications& installed,
                                                    const Workspace& workspace) {
    auto known = installed.list();
    for (const RunningApplication& running : workspace.runningApplications())
        if (!running.localizedName.isEmpty())
            known.push_back({running.bundleIdentifier, running.localizedName, {}});
    return known;
}

} // namespace

SessionPlanner::SessionPlanner(const InstalledApplications& installed, const Workspace& workspace)
    : m_installed(installed)
    , m_workspace(workspace) {}

SessionPlanner::Result SessionPlanner::plan(const Request& request,
                                            const std::vector<BlockCategory>& categories) const {
    if (const auto error = goalError(request.goal))
        return *error;
    if (const auto error = durationError(request.duration))
        return *error;
    auto chosen = chosenCategories(request.categories, categories);
    if (const auto* error = std::get_if<RemoteError>(&chosen))
        return *error;
    auto websites = hosts(request.websites);
    if (const auto* error = std::get_if<RemoteError>(&websites))
        return *error;
    if (std::any_of(request.apps.begin(), request.apps.end(), isBlank))
        return RemoteError{Kind::invalidApplication, u"an application needs a name"_s};
    auto apps = applications(request.apps);

    FocusSession session;
    session.goal = request.goal.trimmed();
    session.duration = request.duration;
    session.blockCategories = std::get<std::vector<BlockCategory>>(std::move(chosen));
    session.blockedWebsites = std::get<std::vector<QString>>(std::move(websites));
    session.blockedApps = std::move(apps.names);
    return Plan{session, warnings(session, apps.unknown)};
}

SessionPlanner::Result SessionPlanner::plan(const PresetRequest& request,
                                            const std::vector<FocusPreset>& presets,
                                            const std::vector<BlockCategory>& categories) const {
    if (const auto error = goalError(request.goal))
        return *error;
    const auto choice = presetNamed(request.preset, presets);
    if (const auto* error = std::get_if<RemoteError>(&choice))
        return *error;
    FocusSession session =
        std::get<FocusPreset>(choice).session(request.goal.trimmed(), categories);
    if (request.duration != 0)
        session.duration = request.duration;
    if (const auto error = durationError(session.duration))
        return *error;
    return Plan{session, warnings(session, {})};
}

SessionPlanner::Applications SessionPlanner::applications(const QStringList& wanted) const {
    if (wanted.isEmpty())
        return {};
    const auto known = knownApplications(m_installed, m_workspace);
    Applications result;
    for (const QString& text : wanted) {
        const auto found = matches(
            known, text, [](const auto& it) { return it.displayName; },
            [](const auto& it) { return it.bundleIdentifier; });
        if (found.empty())
            result.unknown.append(text);
        const QString name = found.empty() ? text : found.front()->displayName;
        if (std::find(result.names.begin(), result.names.end(), name) == result.names.end())
            result.names.push_back(name);
    }
    return result;
}

QStringList SessionPlanner::warnings(const FocusSession& session,
                                     const QStringList& unknownApps) const {
    QStringList warnings;
    for (const QString& name : unknownApps)
        warnings.append(
            u"no application %1 is installed; it is blocked all the same"_s.arg(quoted(name)));
    const bool blocksApps = !BlockingHelpers::resolvedItems(
                                 session.blockedApps, session.blockCategories, &BlockCategory::apps)
                                 .empty();
    if (blocksApps && m_workspace.hidingSupport() == HidingSupport::none)
        warnings.append(u"applications cannot be hidden on this desktop"_s);
    return warnings;
}

std::optional<RemoteError> durationError(Seconds duration) {
    if (std::isfinite(duration) && duration >= RemoteLimits::minimumDuration &&
        duration <= RemoteLimits::maximumDuration)
        return std::nullopt;
    return RemoteError{Kind::invalidDuration, u"a length of time is a second to a year"_s};
}

} // namespace tolvar
