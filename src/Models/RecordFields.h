#pragma once

#include "Models/FocusPreset.h"
#include "Models/FocusSession.h"

#include <array>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>

/// Which key of a stored object holds which field of a record. Reading and writing both follow
/// these tables, so that they cannot disagree.
namespace tolvar::RecordCoding {

/// Every kind of field that a record may have. An optional field may be absent from the object,
/// every other one is required.
template<typename R>
using Member =
    std::variant<bool R::*, Seconds R::*, QString R::*, QUuid R::*, std::optional<int> R::*,
                 std::optional<Seconds> R::*, std::optional<Date> R::*, std::optional<QUuid> R::*,
                 std::optional<SessionOutcome> R::*, std::vector<QString> R::*,
                 std::vector<BlockCategory> R::*>;

template<typename R>
struct Field {
    std::string_view key;
    Member<R> member;
};

/// `all` are the fields of a record, in the order in which they are written.
template<typename R>
struct Fields;

template<>
struct Fields<BlockCategory> {
    static constexpr auto all = std::to_array<Field<BlockCategory>>({
        {"id", &BlockCategory::id},
        {"name", &BlockCategory::name},
        {"apps", &BlockCategory::apps},
        {"websites", &BlockCategory::websites},
    });
};

template<>
struct Fields<FocusSession> {
    static constexpr auto all = std::to_array<Field<FocusSession>>({
        {"id", &FocusSession::id},
        {"goal", &FocusSession::goal},
        {"duration", &FocusSession::duration},
        {"startTime", &FocusSession::startTime},
        {"endTime", &FocusSession::endTime},
        {"blockedApps", &FocusSession::blockedApps},
        {"blockedWebsites", &FocusSession::blockedWebsites},
        {"blockCategories", &FocusSession::blockCategories},
        {"isActive", &FocusSession::isActive},
        {"isPaused", &FocusSession::isPaused},
        {"pausedAt", &FocusSession::pausedAt},
        {"totalPausedTime", &FocusSession::totalPausedTime},
        {"outcome", &FocusSession::outcome},
        {"focusedTime", &FocusSession::focusedTime},
        {"pauseCount", &FocusSession::pauseCount},
    });
};

template<>
struct Fields<FocusPreset> {
    static constexpr auto all = std::to_array<Field<FocusPreset>>({
        {"id", &FocusPreset::id},
        {"sourceSessionId", &FocusPreset::sourceSessionId},
        {"name", &FocusPreset::name},
        {"duration", &FocusPreset::duration},
        {"customApps", &FocusPreset::customApps},
        {"customWebsites", &FocusPreset::customWebsites},
        {"categoryIDs", &FocusPreset::categoryIDs},
    });
};

template<typename T>
concept Record = requires {
    Fields<T>::all;
};

/// The outcomes by the text that stands for each.
inline constexpr std::array<std::pair<std::string_view, SessionOutcome>, 2> outcomes{{
    {"completed", SessionOutcome::completed},
    {"endedEarly", SessionOutcome::endedEarly},
}};

} // namespace tolvar::RecordCoding
