#pragma once

#include "Models/FocusPreset.h"
#include "Models/FocusSession.h"

#include <optional>
#include <vector>

namespace tolvar {

class Preferences;

/// The running session, the presets and the history as the preferences keep them: documents under
/// "currentSession", "savedPresets" and "sessionHistory". A document that cannot be read counts as
/// absent and stays as it is until the next save replaces it.
class SessionStore {
public:
    /// `preferences` outlives the store.
    explicit SessionStore(Preferences& preferences)
        : m_preferences(preferences) {}

    std::optional<FocusSession> loadCurrentSession() const;
    /// Websites of a preset that its built-in categories block anyway are taken out of its own
    /// list; the presets are saved again when that changed one.
    std::vector<FocusPreset> loadPresets();
    std::vector<FocusSession> loadHistory() const;

    /// No session, or one that cannot be encoded, removes the stored one.
    void saveCurrentSession(const std::optional<FocusSession>& session);
    /// What cannot be encoded leaves the stored presets as they are.
    void savePresets(const std::vector<FocusPreset>& presets);
    /// What cannot be encoded leaves the stored history as it is.
    void saveHistory(const std::vector<FocusSession>& history);

private:
    Preferences& m_preferences;
};

} // namespace tolvar
