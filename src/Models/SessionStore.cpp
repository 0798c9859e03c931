#include "Models/SessionStore.h"

#include "Models/RecordCoding.h"
#include "Platform/Interfaces/Preferences.h"

#include <set>

namespace tolvar {

namespace {

const QString currentSessionKey = QStringLiteral("currentSession");
const QString savedPresetsKey = QStringLiteral("savedPresets");
const QString sessionHistoryKey = QStringLiteral("sessionHistory");

/// Whether a website was removed. The built-in categories are meant as they were shipped: what a
/// user has made of one since does not say what older presets duplicated.
bool removeDuplicatedWebsites(FocusPreset& preset) {
    std::set<QString> covered;
    for (const auto& category : preset.categories(BlockCategory::defaults()))
        covered.insert(category.websites.begin(), category.websites.end());
    return std::erase_if(preset.customWebsites,
                         [&](const QString& website) { return covered.contains(website); }) > 0;
}

} // namespace

std::optional<FocusSession> SessionStore::loadCurrentSession() const {
    const auto json = m_preferences.data(currentSessionKey);
    return json ? RecordCoding::decodeSession(*json) : std::nullopt;
}

std::vector<FocusPreset> SessionStore::loadPresets() {
    const auto json = m_preferences.data(savedPresetsKey);
    auto presets = json ? RecordCoding::decodePresets(*json) : std::nullopt;
    if (!presets)
        return {};
    bool anyChanged = false;
    for (auto& preset : *presets)
        anyChanged |= removeDuplicatedWebsites(preset);
    if (anyChanged)
        savePresets(*presets);
    return std::move(*presets);
}

std::vector<FocusSession> SessionStore::loadHistory() const {
    auto json = m_preferences.data(sessionHistoryKey);
    auto history = json ? RecordCoding::decodeSessions(*std::move(json)) : std::nullopt;
    return history ? std::move(*history) : std::vector<FocusSession>();
}

void SessionStore::saveCurrentSession(const std::optional<FocusSession>& session) {
    const auto json = session ? RecordCoding::encode(*session) : std::nullopt;
    if (json)
        m_preferences.setData(currentSessionKey, *json);
    else
        m_preferences.remove(currentSessionKey);
}

void SessionStore::savePresets(const std::vector<FocusPreset>& presets) {
    if (const auto json = RecordCoding::encode(presets))
        m_preferences.setData(savedPresetsKey, *json);
}

void SessionStore::saveHistory(const std::vector<FocusSession>& history) {
    if (const auto json = RecordCoding::encode(history))
        m_preferences.setData(sessionHistoryKey, *json);
}

} // namespace tolvar
