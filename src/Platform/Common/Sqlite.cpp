#include "Platform/Common/Sqlite.h"

namespace tolvar::sqlite {

void Statement::reset() {
    sqlite3_reset(m_statement.get());
    sqlite3_clear_bindings(m_statement.get());
}

void Statement::bind(int index, bool value) {
    sqlite3_bind_int(m_statement.get(), index, value ? 1 : 0);
}

void Statement::bind(int index, double value) {
    sqlite3_bind_double(m_statement.get(), index, value);
}

void Statement::bindText(int index, const QByteArray& utf8) {
    sqlite3_bind_text64(m_statement.get(), index, utf8.constData(),
                        static_cast<sqlite3_uint64>(utf8.size()), SQLITE_STATIC, SQLITE_UTF8);
}

void Statement::bindBlob(int index, const QByteArray& bytes) {
    sqlite3_bind_blob64(m_statement.get(), index, bytes.constData(),
                        static_cast<sqlite3_uint64>(bytes.size()), SQLITE_STATIC);
}

sqlite3_int64 Statement::integer(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

double Statement::number(int column) const {
    return sqlite3_column_double(m_statement.get(), column);
}

QString Statement::text(int column) const {
    const auto* utf8 =
        reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    return QString::fromUtf8(utf8, sqlite3_column_bytes(m_statement.get(), column));
}

QByteArray Statement::blob(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement.get(), column));
    return QByteArray(bytes, sqlite3_column_bytes(m_statement.get(), column));
}

int Connection::open(const QByteArray& name, int flags) {
    sqlite3* connection = nullptr;
    const int result = sqlite3_open_v2(name.constData(), &connection, flags, nullptr);
    m_connection.reset(connection);
    sqlite3_extended_result_codes(connection, 1);
    return result;
}

void Connection::leaveLogOnClose() {
    sqlite3_db_config(m_connection.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

void Connection::keepLog() {
    const auto note = [](void* pages, sqlite3*, const char*, int count) {
        *static_cast<int*>(pages) = count;
        return SQLITE_OK;
    };
    sqlite3_wal_hook(m_connection.get(), note, &m_logPages);
}

void Connection::foldLog() {
    m_logPages = 0;
    sqlite3_wal_checkpoint_v2(m_connection.get(), nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr,
                              nullptr);
}

int Connection::execute(const char* sql) {
    return sqlite3_exec(m_connection.get(), sql, nullptr, nullptr, nullptr);
}

int Connection::prepare(Statement& statement, const char* sql) {
    sqlite3_stmt* prepared = nullptr;
    const int result = sqlite3_prepare_v3(m_connection.get(), sql, -1, SQLITE_PREPARE_PERSISTENT,
                                          &prepared, nullptr);
    statement.m_statement.reset(prepared);
    return result;
}

QString Connection::errorMessage() const {
    return QString::fromUtf8(sqlite3_errmsg(m_connection.get()));
}

bool Connection::hasMoved() const {
    int moved = 0;
    sqlite3_file_control(m_connection.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved != 0;
}

Transaction::~Transaction() {
    if (m_connection.inTransaction())
        m_connection.execute("ROLLBACK");
}

} // namespace tolvar::sqlite
