#pragma once

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

#include <memory>

/// The few pieces of SQLite's C interface that the preferences need, as objects that clean up after
/// themselves. Result codes are SQLite's own, extended ones.
namespace tolvar::sqlite {

/// One prepared statement. What is bound must outlive the next reset.
class Statement {
public:
    /// Ready for the next use: nothing bound, no lock held.
    void reset();
    void bind(int index, bool value);
    void bind(int index, double value);
    void bindText(int index, const QByteArray& utf8);
    void bindBlob(int index, const QByteArray& bytes);

    /// SQLITE_ROW, SQLITE_DONE or an error.
    int step() { return sqlite3_step(m_statement.get()); }

    /// SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_BLOB or SQLITE_NULL.
    int type(int column) const { return sqlite3_column_type(m_statement.get(), column); }
    sqlite3_int64 integer(int column) const;
    double number(int column) const;
    QString text(int column) const;
    QByteArray blob(int column) const;

private:
    friend class Connection;
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/// One use of a prepared statement: reset before and after, so that no read lock outlives it.
class Use {
public:
    explicit Use(Statement& statement)
        : m_statement(statement) {
        m_statement.reset();
    }
    ~Use() { m_statement.reset(); }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

private:
    Statement& m_statement;
};

/// One connection to a database file; closing it leaves the write-ahead log to the next one when
/// `leaveLogOnClose` was called.
class Connection {
public:
    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// `flags` as of sqlite3_open_v2. The connection may be used for `errorMessage` alone when this
    /// fails.
    int open(const QByteArray& name, int flags);
    explicit operator bool() const { return m_connection != nullptr; }
    /// Waits this long for other processes' locks.
    void setBusyTimeout(int milliseconds) {
        sqlite3_busy_timeout(m_connection.get(), milliseconds);
    }
    void leaveLogOnClose();
    /// From now on the write-ahead log goes into the file by `foldLog` alone, and on closing.
    void keepLog();
    /// How long the log was after this connection's last transaction, in pages.
    int logPages() const { return m_logPages; }
    /// Puts what the log holds into the file, as far as no other process reads it.
    void foldLog();

    /// Runs statements that return nothing of interest.
    int execute(const char* sql);
    int prepare(Statement& statement, const char* sql);

    QString errorMessage() const;
    bool isReadOnly() const { return sqlite3_db_readonly(m_connection.get(), "main") != 0; }
    /// Whether the file was deleted or another one stands in its place.
    bool hasMoved() const;
    bool inTransaction() const { return sqlite3_get_autocommit(m_connection.get()) == 0; }

private:
    struct Close {
        void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
    };
    int m_logPages = 0;
    std::unique_ptr<sqlite3, Close> m_connection;
};

/// A writing transaction; undone at the end of its life unless committed.
class Transaction {
public:
    explicit Transaction(Connection& connection)
        : m_connection(connection) {}
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Takes the write lock, waiting as long as the connection's busy timeout.
    int begin() { return m_connection.execute("BEGIN IMMEDIATE"); }
    int commit() { return m_connection.execute("COMMIT"); }

private:
    Connection& m_connection;
};

} // namespace tolvar::sqlite
