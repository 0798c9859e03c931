#pragma once

#include "Platform/Interfaces/Preferences.h"

#include <memory>

struct sqlite3;

namespace tolvar {

class SystemLog;

/// Preferences in one SQLite file: table preferences(key TEXT PRIMARY KEY, value) with booleans
/// as INTEGER 0 or 1, numbers as REAL, text as TEXT and documents as BLOB; write-ahead log,
/// synchronous = FULL.
///
/// A file that is not a usable database is moved aside (".corrupt-<time>") with what can still be
/// read carried over to a fresh one. Where nothing can be written, that is logged once and what
/// was set lives in memory until writing works again.
class SqlitePreferences final : public Preferences {
public:
    /// Opens or makes the file and its folder (modes 0600 and 0700). Never fails; `log` outlives
    /// the preferences.
    SqlitePreferences(const QString& filePath, SystemLog& log);
    ~SqlitePreferences() override;

private:
    std::optional<Value> read(const QString& key) const override;
    void write(const Changes& changes) override;
};

} // namespace tolvar
