#pragma once

#include "Platform/Interfaces/Preferences.h"
#include "Support/Journal.h"

#include <QStringList>

namespace tolvar::test {

/// Preferences in memory that record every write. Journal line: "write KEY, KEY" for one write,
/// keys in alphabetical order, a removed one as "-KEY".
class RecordingPreferences final : public Preferences {
public:
    explicit RecordingPreferences(Journal& journal)
        : m_journal(journal) {}

    /// The program is killed: nothing is stored any more.
    void killProgram() { m_programIsDead = true; }
    void restartProgram() { m_programIsDead = false; }

private:
    std::optional<Value> read(const QString& key) const override {
        const auto found = m_values.find(key);
        return found != m_values.end() ? std::optional(found->second) : std::nullopt;
    }

    void write(const Changes& changes) override {
        QStringList keys;
        for (const auto& [key, change] : changes)
            keys.append(change ? key : u'-' + key);
        m_journal.record(QStringLiteral("write ") + keys.join(QStringLiteral(", ")));
        if (!m_programIsDead)
            for (const auto& [key, change] : changes)
                store(key, change);
    }

    void store(const QString& key, const Change& change) {
        if (change)
            m_values.insert_or_assign(key, *change);
        else
            m_values.erase(key);
    }

    Journal& m_journal;
    std::map<QString, Value> m_values;
    bool m_programIsDead = false;
};

} // namespace tolvar::test
