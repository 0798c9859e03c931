#include "Platform/Common/SqlitePreferences.h"

#include "Platform/Common/PreferencesDatabase.h"
#include "Platform/Common/PrivateFile.h"
#include "Platform/Interfaces/SystemLog.h"
#include "Platform/Interfaces/TimerService.h"

#include <QFileInfo>
#include <QLockFile>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

using Access = PreferencesDatabase::Access;
using Outcome = PreferencesDatabase::Outcome;
using Verdict = PreferencesDatabase::Verdict;

constexpr std::chrono::seconds retryInterval(5);
/// Who waited for a change to be stored has got the answer by then.
constexpr std::chrono::milliseconds foldDelay(500);

/// The database is usable when the outcome is done.
struct Opened {
    std::unique_ptr<PreferencesDatabase> database;
    Outcome outcome;
};

Opened openDatabase(const QString& filePath, Access access, std::chrono::milliseconds patience) {
    auto database = std::make_unique<PreferencesDatabase>(patience);
    Outcome outcome = database->open(filePath, access);
    return {std::move(database), std::move(outcome)};
}

} // namespace

/// What is done when something is wrong with the database: what stays in memory, when it is tried
/// again, what is moved aside and who is told.
class SqlitePreferences::Store {
public:
    Store(const QString& filePath, SystemLog& log, TimerService& timers,
          std::chrono::milliseconds patience)
        : m_filePath(filePath)
        , m_log(log)
        , m_timers(timers)
        , m_patience(patience) {
        open();
        if (m_trouble.verdict == Verdict::damaged)
            repair();
        else if (!m_trouble.isDone())
            tellOnce(u"stored"_s, m_trouble);
    }
    ~Store() {
        if (!m_pending.empty())
            storePending();
    }

    std::optional<Value> read(const QString& key) {
        std::optional<Value> value;
        Outcome outcome = lookUp(key, value);
        if (outcome.verdict == Verdict::damaged) {
            repair();
            outcome = lookUp(key, value);
        }
        if (!outcome.isDone())
            tellOnce(u"read"_s, outcome);
        return value;
    }

    void write(const Changes& changes) {
        for (const auto& [key, change] : changes)
            m_pending.insert_or_assign(key, change);
        storePending();
        retryWhilePending();
    }

private:
    /// What could not be stored yet goes before what is stored.
    Outcome lookUp(const QString& key, std::optional<Value>& value) {
        if (const auto found = m_pending.find(key); found != m_pending.end()) {
            value = found->second;
            return {};
        }
        return m_database ? m_database->read(key, value) : Outcome{};
    }

    void open() {
        m_database.reset();
        PrivateFile::prepare(m_filePath);
        auto opened = openDatabase(m_filePath, Access::shared, m_patience);
        m_trouble = std::move(opened.outcome);
        if (m_trouble.isDone() && !opened.database->canWrite())
            m_trouble = {Verdict::failed, u"it is read-only"_s};
        else if (!m_trouble.isDone())
            opened = openDatabase(m_filePath, Access::frozen, m_patience);
        if (opened.outcome.isDone())
            m_database = std::move(opened.database);
    }

    void storePending() {
        if (!m_trouble.isDone())
            open();
        else if (m_database->hasMoved())
            openAnew();
        const Outcome outcome = applyPending();
        if (outcome.verdict == Verdict::damaged)
            repair();
        else if (!outcome.isDone())
            tellOnce(u"stored"_s, outcome);
    }

    /// What is only in memory would be lost with the process: it does not wait for the next change.
    void retryWhilePending() {
        if (m_pending.empty())
            m_retry.reset();
        else if (!m_retry)
            m_retry = m_timers.repeat(retryInterval, [this] {
                storePending();
                retryWhilePending();
            });
    }

    Outcome applyPending() {
        if (!m_trouble.isDone())
            return m_trouble;
        Outcome outcome = m_database->apply(m_pending);
        if (outcome.isDone()) {
            m_pending.clear();
            m_told = false;
            foldLogLater();
        }
        return outcome;
    }

    void foldLogLater() {
        if (m_fold || !m_database->isLogLong())
            return;
        m_fold = m_timers.once(foldDelay, [this] {
            m_fold.reset();
            if (m_database)
                m_database->foldLog();
        });
    }

    /// The file was deleted, and what it held goes into a new one; or it was replaced, and what the
    /// other one holds counts.
    void openAnew() {
        if (!QFileInfo::exists(m_filePath))
            m_pending.merge(m_database->salvage());
        open();
    }

    /// Looks once more before anything is moved: another process may have repaired the file.
    void repair() {
        QLockFile lock(m_filePath + u".repair"_s);
        const bool alone = lock.tryLock(static_cast<int>(m_patience.count()));
        m_database.reset();
        auto [database, outcome] = openDatabase(m_filePath, Access::shared, m_patience);
        if (outcome.isDone())
            outcome = database->check();
        if (outcome.verdict == Verdict::damaged) {
            Changes readable = database->salvage();
            database.reset();
            moveAside(alone, outcome, readable.size());
            m_pending.merge(readable);
        }
        database.reset();
        open();
        if (const Outcome stored = applyPending(); !stored.isDone())
            tellOnce(u"stored"_s, stored);
    }

    void moveAside(bool alone, const Outcome& damage, std::size_t readable) {
        const auto aside = alone ? PrivateFile::moveAside(m_filePath) : std::nullopt;
        if (aside)
            m_log.error(category, u"%1 was damaged (%2) and is now %3; %4 values are carried over"_s
                                      .arg(m_filePath, damage.reason, *aside)
                                      .arg(readable));
    }

    void tellOnce(const QString& what, const Outcome& outcome) {
        if (!std::exchange(m_told, true))
            m_log.error(category, u"Preferences cannot be %1 in %2: %3"_s.arg(what, m_filePath,
                                                                              outcome.reason));
    }

    inline static const QString category = QStringLiteral("Preferences");

    const QString m_filePath;
    SystemLog& m_log;
    TimerService& m_timers;
    const std::chrono::milliseconds m_patience;
    /// What can be read from; shared with other processes unless there is trouble.
    std::unique_ptr<PreferencesDatabase> m_database;
    /// Why nothing can be stored; done when it can.
    Outcome m_trouble;
    /// Changes that are not stored yet.
    Changes m_pending;
    /// Runs while there are such.
    std::unique_ptr<Timer> m_retry;
    /// Runs while the database's log is long.
    std::unique_ptr<Timer> m_fold;
    /// Whether the present trouble was logged.
    bool m_told = false;
};

SqlitePreferences::SqlitePreferences(const QString& filePath, SystemLog& log, TimerService& timers,
                                     std::chrono::milliseconds patience)
    : m_store(std::make_unique<Store>(filePath, log, timers, patience)) {}
SqlitePreferences::~SqlitePreferences() = default;

std::optional<Preferences::Value> SqlitePreferences::read(const QString& key) const {
    return m_store->read(key);
}

void SqlitePreferences::write(const Changes& changes) {
    m_store->write(changes);
}

} // namespace tolvar
