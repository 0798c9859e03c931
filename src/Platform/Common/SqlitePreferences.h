#pragma once

#include "Platform/Interfaces/Preferences.h"

#include <chrono>
#include <memory>

namespace tolvar {

class SystemLog;
class TimerService;

/// Preferences in one SQLite file: table preferences(key TEXT PRIMARY KEY, value) with booleans
/// as INTEGER 0 or 1, numbers as REAL, text as TEXT and documents as BLOB; write-ahead log,
/// synchronous = FULL. A value of any other type counts as absent until it is overwritten. Several
/// processes may share the file.
///
/// A file that is not a usable database is moved aside (".corrupt-<time>") with what can still be
/// read carried over to a fresh one. Where nothing can be written, that is logged once and what
/// was set lives in memory until writing works again: it is tried again with the next change, every
/// few seconds, and when this is destroyed. Used from one thread.
class SqlitePreferences final : public Preferences {
public:
    /// Opens or makes the file and its folder (modes 0600 and 0700). Never fails; `log` and
    /// `timers` outlive the preferences. `patience` is how long one access waits for a lock of
    /// another process: by default longer than the largest history takes to be written.
    SqlitePreferences(const QString& filePath, SystemLog& log, TimerService& timers,
                      std::chrono::milliseconds patience = std::chrono::seconds(1));
    ~SqlitePreferences() override;

private:
    class Store;

    std::optional<Value> read(const QString& key) const override;
    void write(const Changes& changes) override;

    std::unique_ptr<Store> m_store;
};

} // namespace tolvar
