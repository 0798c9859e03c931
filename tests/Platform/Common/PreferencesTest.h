#pragma once

#include "Platform/Common/Sqlite.h"
#include "Platform/Common/SqlitePreferences.h"
#include "Support/HandClock.h"
#include "Support/RecordingLog.h"
#include "Support/Texts.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace tolvar::test {

/// A place for a preferences file of its own, and ways to look at it and to do it harm.
class PreferencesTest : public testing::Test {
protected:
    using Value = Preferences::Value;

    /// Short, because nobody else's lock goes away in these tests.
    static constexpr std::chrono::milliseconds patience{20};

    std::unique_ptr<SqlitePreferences> open() {
        return std::make_unique<SqlitePreferences>(m_file, m_log, m_clock, patience);
    }
    /// Opens, sets each text and closes.
    void store(const std::map<QString, QString>& values) {
        const auto preferences = open();
        for (const auto& [key, value] : values)
            preferences->setText(key, value);
    }
    /// Runs SQL on the file as another program would.
    void runSql(const char* sql) {
        sqlite::Connection connection;
        ASSERT_EQ(
            connection.open(QFile::encodeName(m_file), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE),
            SQLITE_OK);
        ASSERT_EQ(connection.execute(sql), SQLITE_OK) << connection.errorMessage().toStdString();
    }
    /// The first column of the first row, as text.
    QString queried(const char* sql) {
        sqlite::Connection connection;
        sqlite::Statement statement;
        connection.open(QFile::encodeName(m_file), SQLITE_OPEN_READWRITE);
        EXPECT_EQ(connection.prepare(statement, sql), SQLITE_OK);
        return statement.step() == SQLITE_ROW ? statement.text(0) : QString();
    }
    static QByteArray contents(const QString& path) {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void put(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly)) << path.toStdString();
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    /// What was moved aside, as names within the folder, helper files left out.
    QStringList movedAside() const {
        QStringList names = QDir(m_folder).entryList(
            {QStringLiteral("preferences.sqlite3.corrupt-*")},
            QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
        names.removeIf([](const QString& name) {
            return name.endsWith(QLatin1String("-wal")) || name.endsWith(QLatin1String("-shm"));
        });
        return names;
    }

    QTemporaryDir m_root;
    QString m_folder = m_root.filePath(QStringLiteral("data/tolvar"));
    QString m_file = m_folder + QStringLiteral("/preferences.sqlite3");
    RecordingLog m_log;
    HandClock m_clock;
};

} // namespace tolvar::test
