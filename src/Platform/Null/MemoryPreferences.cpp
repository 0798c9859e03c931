#include "Platform/Null/MemoryPreferences.h"

namespace tolvar {

std::optional<Preferences::Value> MemoryPreferences::read(const QString& key) const {
    const auto found = m_values.find(key);
    return found != m_values.end() ? std::optional(found->second) : std::nullopt;
}

void MemoryPreferences::write(const Changes& changes) {
    for (const auto& [key, change] : changes) {
        if (change)
            m_values.insert_or_assign(key, *change);
        else
            m_values.erase(key);
    }
}

} // namespace tolvar
