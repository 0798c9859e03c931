#pragma once

#include "Platform/Interfaces/Preferences.h"

namespace tolvar {

/// Preferences that live as long as the object.
class MemoryPreferences final : public Preferences {
private:
    std::optional<Value> read(const QString& key) const override;
    void write(const Changes& changes) override;

    std::map<QString, Value> m_values;
};

} // namespace tolvar
