#include "Platform/Common/PreferencesDatabase.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <set>

namespace tolvar {

using namespace Qt::StringLiterals;
using Change = Preferences::Change;
using Changes = Preferences::Changes;
using Value = Preferences::Value;

namespace {

/// For a new file: a history of many megabytes is written in half the time of small pages.
constexpr auto fileSettings = "PRAGMA page_size = 16384;";
/// Values that are replaced are not overwritten with zeroes first where that costs writing, and a
/// log that was once large does not stay so.
constexpr auto connectionSettings = "PRAGMA synchronous = FULL;"
                                    "PRAGMA secure_delete = FAST;"
                                    "PRAGMA journal_size_limit = 1048576;";
/// About four megabytes in a file of our own making.
constexpr int longLogPages = 256;
constexpr auto makeTableSql =
    "CREATE TABLE IF NOT EXISTS preferences(key TEXT PRIMARY KEY NOT NULL, value)";
/// Whether texts, numbers and bytes keep their types in the table and every change can be stored.
/// Columns that are not ours do no harm as long as they may stay empty.
constexpr auto tableIsUsableSql =
    "SELECT count(*) FILTER (WHERE name = 'key' AND type = 'TEXT') = 1"
    " AND count(*) FILTER (WHERE name = 'value' AND type IN ('', 'BLOB')) = 1"
    " AND count(*) FILTER (WHERE name NOT IN ('key', 'value')"
    "                      AND \"notnull\" AND dflt_value IS NULL) = 0"
    " FROM pragma_table_info('preferences')";
constexpr auto readSql = "SELECT value FROM preferences WHERE key = ?1";
constexpr auto insertSql = "INSERT INTO preferences(key, value) VALUES(?1, ?2) "
                           "ON CONFLICT(key) DO UPDATE SET value = excluded.value";
constexpr auto removeSql = "DELETE FROM preferences WHERE key = ?1";

/// The same keys by way of the index and of the table, from both ends: a broken page ends a scan,
/// but hardly all four at the same key.
constexpr const char* keyScans[] = {
    "SELECT key FROM preferences ORDER BY key",
    "SELECT key FROM preferences ORDER BY key DESC",
    "SELECT key FROM preferences NOT INDEXED ORDER BY rowid",
    "SELECT key FROM preferences NOT INDEXED ORDER BY rowid DESC",
};
constexpr const char* valueSearches[] = {
    readSql,
    "SELECT value FROM preferences NOT INDEXED WHERE key = ?1",
    "SELECT value FROM preferences NOT INDEXED WHERE key = ?1 ORDER BY rowid DESC",
};

std::optional<Value> valueOf(const sqlite::Statement& row) {
    switch (row.type(0)) {
    case SQLITE_INTEGER:
        if (const auto integer = row.integer(0); integer == 0 || integer == 1)
            return integer == 1;
        return std::nullopt;
    case SQLITE_FLOAT:
        return row.number(0);
    case SQLITE_TEXT:
        return row.text(0);
    case SQLITE_BLOB:
        return row.blob(0);
    default:
        return std::nullopt;
    }
}

std::set<QString> readableKeys(sqlite::Connection& connection) {
    std::set<QString> keys;
    for (const char* scan : keyScans) {
        sqlite::Statement statement;
        if (connection.prepare(statement, scan) != SQLITE_OK)
            continue;
        while (statement.step() == SQLITE_ROW)
            keys.insert(statement.text(0));
    }
    return keys;
}

std::optional<Value> readableValue(sqlite::Connection& connection, const QString& key) {
    const QByteArray utf8 = key.toUtf8();
    for (const char* search : valueSearches) {
        sqlite::Statement statement;
        if (connection.prepare(statement, search) != SQLITE_OK)
            continue;
        statement.bindText(1, utf8);
        if (statement.step() == SQLITE_ROW)
            return valueOf(statement);
    }
    return std::nullopt;
}

QByteArray frozenName(const QString& filePath) {
    QUrl url = QUrl::fromLocalFile(filePath);
    url.setQuery(u"immutable=1"_s);
    return url.toEncoded();
}

} // namespace

PreferencesDatabase::Outcome PreferencesDatabase::outcomeOf(int result) {
    switch (result & 0xff) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return {};
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        // A frozen file may look broken merely because another process is writing it.
        if (m_access == Access::shared)
            return damaged(m_connection.errorMessage());
        return {Verdict::failed, m_connection.errorMessage()};
    case SQLITE_BUSY:
        return {Verdict::busy, m_connection.errorMessage()};
    default:
        return {Verdict::failed, m_connection.errorMessage()};
    }
}

PreferencesDatabase::Outcome PreferencesDatabase::damaged(const QString& reason) {
    if (m_connection)
        m_connection.leaveLogOnClose();
    return {Verdict::damaged, reason};
}

PreferencesDatabase::Outcome PreferencesDatabase::open(const QString& filePath, Access access) {
    m_access = access;
    if (const QFileInfo info(filePath); info.exists() && !info.isFile())
        return damaged(u"it is not a file"_s);
    if (const int opened = connect(filePath); opened != SQLITE_OK)
        return outcomeOf(opened);
    m_connection.setBusyTimeout(static_cast<int>(m_patience.count()));
    return canWrite() ? prepareToWrite() : outcomeOf(prepareStatements());
}

int PreferencesDatabase::connect(const QString& filePath) {
    if (m_access == Access::frozen)
        return m_connection.open(frozenName(filePath),
                                 SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX);
    return m_connection.open(QFile::encodeName(filePath),
                             SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX);
}

PreferencesDatabase::Outcome PreferencesDatabase::prepareToWrite() {
    m_connection.execute(fileSettings);
    // Without a log (a lock held elsewhere, an odd file system) storing is slower, not unsafe.
    m_connection.execute("PRAGMA journal_mode = WAL");
    m_connection.execute(connectionSettings);
    m_connection.keepLog();
    if (const int made = makeTable(); made != SQLITE_OK)
        return outcomeOf(made);
    const int prepared = prepareStatements();
    if (prepared == SQLITE_ERROR || (prepared == SQLITE_OK && !isTableUsable()))
        return damaged(u"its table has another form"_s);
    return outcomeOf(prepared);
}

bool PreferencesDatabase::isTableUsable() {
    sqlite::Statement check;
    return m_connection.prepare(check, tableIsUsableSql) != SQLITE_OK ||
           check.step() != SQLITE_ROW || check.integer(0) == 1;
}

int PreferencesDatabase::makeTable() {
    if (m_connection.prepare(m_read, readSql) == SQLITE_OK)
        return SQLITE_OK;
    sqlite::Transaction transaction(m_connection);
    if (const int begun = transaction.begin(); begun != SQLITE_OK)
        return begun;
    if (const int made = m_connection.execute(makeTableSql); made != SQLITE_OK)
        return made;
    return transaction.commit();
}

int PreferencesDatabase::prepareStatements() {
    for (const auto& [statement, sql] :
         {std::pair(&m_read, readSql), {&m_insert, insertSql}, {&m_remove, removeSql}})
        if (const int result = m_connection.prepare(*statement, sql); result != SQLITE_OK)
            return result;
    return SQLITE_OK;
}

PreferencesDatabase::Outcome PreferencesDatabase::read(const QString& key,
                                                       std::optional<Value>& value) {
    const QByteArray utf8 = key.toUtf8();
    const sqlite::Use use(m_read);
    m_read.bindText(1, utf8);
    const int result = m_read.step();
    value = result == SQLITE_ROW ? valueOf(m_read) : std::nullopt;
    return outcomeOf(result);
}

PreferencesDatabase::Outcome PreferencesDatabase::apply(const Changes& changes) {
    sqlite::Transaction transaction(m_connection);
    if (const int begun = transaction.begin(); begun != SQLITE_OK)
        return outcomeOf(begun);
    for (const auto& [key, change] : changes)
        if (const int stored = store(key, change); stored != SQLITE_DONE)
            return outcomeOf(stored);
    return outcomeOf(transaction.commit());
}

bool PreferencesDatabase::isLogLong() const {
    return m_connection.logPages() >= longLogPages;
}

int PreferencesDatabase::store(const QString& key, const Change& change) {
    auto& statement = change ? m_insert : m_remove;
    const QByteArray utf8 = key.toUtf8();
    QByteArray bytes;
    const sqlite::Use use(statement);
    statement.bindText(1, utf8);
    if (change) {
        if (const auto* boolean = std::get_if<bool>(&*change)) {
            statement.bind(2, *boolean);
        } else if (const auto* number = std::get_if<double>(&*change)) {
            statement.bind(2, *number);
        } else if (const auto* text = std::get_if<QString>(&*change)) {
            bytes = text->toUtf8();
            statement.bindText(2, bytes);
        } else if (const auto* data = std::get_if<QByteArray>(&*change)) {
            statement.bindBlob(2, *data);
        }
    }
    return statement.step();
}

Changes PreferencesDatabase::salvage() {
    Changes values;
    if (!m_connection)
        return values;
    // Lets SQLite read on in a file that is shorter than it should be.
    m_connection.execute("PRAGMA writable_schema = ON");
    for (const QString& key : readableKeys(m_connection))
        if (auto value = readableValue(m_connection, key))
            values.emplace(key, std::move(value));
    return values;
}

PreferencesDatabase::Outcome PreferencesDatabase::check() {
    sqlite::Statement check;
    int result = m_connection.prepare(check, "PRAGMA integrity_check(1)");
    if (result == SQLITE_OK)
        result = check.step();
    if (result == SQLITE_ROW && check.text(0) != u"ok")
        return damaged(check.text(0));
    return outcomeOf(result);
}

} // namespace tolvar
