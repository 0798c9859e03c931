#pragma once

#include "Platform/Common/Sqlite.h"
#include "Platform/Interfaces/Preferences.h"

#include <QString>

#include <chrono>
#include <optional>

namespace tolvar {

/// One open SQLite file with a table preferences(key TEXT PRIMARY KEY, value). It says what went
/// wrong and leaves it to its owner what to do about that. Used from one thread.
class PreferencesDatabase {
public:
    enum class Verdict {
        done,
        /// The file itself is broken: not a database, inconsistent, or with a table that cannot be
        /// used. A lock held elsewhere, a full disk or an error of the device never counts as this.
        /// File and log are left as they are when this is closed.
        damaged,
        /// Another process holds a lock for longer than our patience.
        busy,
        failed,
    };
    struct Outcome {
        Verdict verdict = Verdict::done;
        /// For the log, when it is not done.
        QString reason;

        bool isDone() const { return verdict == Verdict::done; }
    };
    enum class Access {
        /// Shares the file with other processes; makes the table when there is none.
        shared,
        /// Reads the file as it stands, without the log, locks and helper files that need a
        /// writable folder.
        frozen,
    };

    /// `patience` is how long an operation waits for a lock of another process.
    explicit PreferencesDatabase(std::chrono::milliseconds patience)
        : m_patience(patience) {}

    /// Opens the file, which `shared` access makes when it is absent. Other operations are allowed
    /// only after this is done, except `salvage`, which may always follow.
    Outcome open(const QString& filePath, Access access);

    /// Puts what is stored under the key into `value`: nothing when it is absent or of no type that
    /// preferences have.
    Outcome read(const QString& key, std::optional<Preferences::Value>& value);
    /// Stores the changes, all or none.
    Outcome apply(const Preferences::Changes& changes);

    /// Whether so much lies in the log that it should go into the file. That takes as long as
    /// storing did: `foldLog` is for a moment in which nobody waits.
    bool isLogLong() const;
    void foldLog() { m_connection.foldLog(); }

    /// What can still be read of a damaged file.
    Preferences::Changes salvage();
    /// Goes through the whole file: done when it is sound. Slow for large files.
    Outcome check();
    /// Whether the file itself lets itself be written.
    bool canWrite() const { return m_access == Access::shared && !m_connection.isReadOnly(); }
    /// Whether the file was deleted or another one stands in its place.
    bool hasMoved() const { return m_connection.hasMoved(); }

private:
    Outcome outcomeOf(int result);
    Outcome damaged(const QString& reason);
    int connect(const QString& filePath);
    Outcome prepareToWrite();
    int makeTable();
    int prepareStatements();
    bool isTableUsable();
    int store(const QString& key, const Preferences::Change& change);

    const std::chrono::milliseconds m_patience;
    Access m_access = Access::shared;
    // The statements are destroyed before the connection they belong to.
    sqlite::Connection m_connection;
    sqlite::Statement m_read;
    sqlite::Statement m_insert;
    sqlite::Statement m_remove;
};

} // namespace tolvar
