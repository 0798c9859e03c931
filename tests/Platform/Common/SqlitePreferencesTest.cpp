#include "Platform/Common/PreferencesTest.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <limits>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

class SqlitePreferencesTest : public test::PreferencesTest {
protected:
    static int modeOf(const QString& path) {
        struct stat status {};
        return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 0777 : -1;
    }
};

TEST_F(SqlitePreferencesTest, KeepValuesOfEveryTypeFromOneLaunchToTheNext) {
    {
        const auto preferences = open();
        preferences->setBoolean(u"on"_s, true);
        preferences->setBoolean(u"off"_s, false);
        preferences->setNumber(u"number"_s, 0.1);
        preferences->setNumber(u"whole"_s, 1);
        preferences->setNumber(u"infinite"_s, std::numeric_limits<double>::infinity());
        preferences->setText(u"text"_s, u"Grüße 🏰\0!"_s);
        preferences->setData(u"data"_s, QByteArray("{\"a\":\0\xFF}", 8));
    }
    const auto preferences = open();
    EXPECT_EQ(preferences->storedValue(u"on"_s), Value(true));
    EXPECT_EQ(preferences->storedValue(u"off"_s), Value(false));
    EXPECT_EQ(preferences->storedValue(u"number"_s), Value(0.1));
    EXPECT_EQ(preferences->storedValue(u"whole"_s), Value(1.0));
    EXPECT_EQ(preferences->storedValue(u"infinite"_s),
              Value(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(preferences->storedValue(u"text"_s), Value(u"Grüße 🏰\0!"_s));
    EXPECT_EQ(preferences->storedValue(u"data"_s), Value(QByteArray("{\"a\":\0\xFF}", 8)));
    EXPECT_EQ(preferences->storedValue(u"absent"_s), std::nullopt);
}

TEST_F(SqlitePreferencesTest, KeepEmptyValuesApartFromAbsentOnes) {
    {
        const auto preferences = open();
        preferences->setText(u"text"_s, QString());
        preferences->setData(u"data"_s, QByteArray());
        preferences->setText(QString(), u"under the empty key"_s);
    }
    const auto preferences = open();
    EXPECT_EQ(preferences->storedValue(u"text"_s), Value(u""_s));
    EXPECT_EQ(preferences->data(u"data"_s), QByteArray(""));
    EXPECT_EQ(preferences->text(QString()), u"under the empty key"_s);
}

TEST_F(SqlitePreferencesTest, LieInTheFileAsAnybodyWouldExpectThem) {
    {
        const auto preferences = open();
        preferences->setBoolean(u"boolean"_s, true);
        preferences->setNumber(u"number"_s, 2);
        preferences->setText(u"text"_s, u"2"_s);
        preferences->setData(u"data"_s, "[2]");
    }
    EXPECT_EQ(queried("SELECT group_concat(key || ' ' || typeof(value) || ' ' || value, ', ')"
                      " FROM (SELECT * FROM preferences ORDER BY key)"),
              u"boolean integer 1, data blob [2], number real 2.0, text text 2"_s);
    EXPECT_EQ(queried("PRAGMA journal_mode"), u"wal"_s);
}

TEST_F(SqlitePreferencesTest, RemoveAndReplaceValues) {
    store({{u"gone"_s, u"1"_s}, {u"changed"_s, u"1"_s}});
    {
        const auto preferences = open();
        preferences->remove(u"gone"_s);
        preferences->remove(u"never there"_s);
        preferences->setBoolean(u"changed"_s, true);
    }
    const auto preferences = open();
    EXPECT_EQ(preferences->storedValue(u"gone"_s), std::nullopt);
    EXPECT_EQ(preferences->storedValue(u"changed"_s), Value(true));
}

TEST_F(SqlitePreferencesTest, NeverStoreFactoryValues) {
    {
        const auto preferences = open();
        preferences->registerDefaults({{u"volume"_s, 0.8}, {u"sounds"_s, true}});
        EXPECT_EQ(preferences->number(u"volume"_s), 0.8);
        preferences->setNumber(u"volume"_s, 0.3);
        preferences->remove(u"volume"_s);
        EXPECT_EQ(preferences->number(u"volume"_s), 0.8);
    }
    EXPECT_EQ(queried("SELECT count(*) FROM preferences"), u"0"_s);
}

TEST_F(SqlitePreferencesTest, ReadAValueOfTheWrongTypeAsItsFactoryValue) {
    store({});
    runSql("INSERT INTO preferences VALUES ('five', 5), ('null', NULL), ('text', '0.5'),"
           " ('real', 0.5), ('blob', x'31'), ('minus', -1), ('one', 1)");
    const auto preferences = open();
    for (const auto& key : {u"five"_s, u"null"_s, u"text"_s, u"real"_s, u"blob"_s, u"minus"_s})
        preferences->registerDefaults({{key, true}});
    for (const auto& key : {u"five"_s, u"null"_s, u"text"_s, u"real"_s, u"blob"_s, u"minus"_s})
        EXPECT_TRUE(preferences->boolean(key)) << key.toStdString();
    preferences->registerDefaults({{u"five"_s, 0.8}, {u"one"_s, 0.8}, {u"text"_s, 0.8}});
    EXPECT_EQ(preferences->number(u"five"_s), 0.8);
    EXPECT_EQ(preferences->number(u"one"_s), 0.8);
    EXPECT_EQ(preferences->number(u"text"_s), 0.8);
    EXPECT_EQ(preferences->number(u"real"_s), 0.5);
    EXPECT_EQ(preferences->data(u"text"_s), std::nullopt);
    EXPECT_EQ(preferences->text(u"blob"_s), QString());
}

TEST_F(SqlitePreferencesTest, ReplaceAndRemoveValuesOfTypesTheyDoNotKnow) {
    store({});
    runSql("INSERT INTO preferences VALUES ('five', 5), ('six', 6)");
    {
        const auto preferences = open();
        preferences->setNumber(u"five"_s, 5.5);
        preferences->remove(u"six"_s);
    }
    EXPECT_EQ(queried("SELECT group_concat(key || value) FROM preferences"), u"five5.5"_s);
}

TEST_F(SqlitePreferencesTest, LeaveWhatTheyDoNotKnowUntouched) {
    store({{u"mine"_s, u"1"_s}});
    runSql("INSERT INTO preferences VALUES ('fromTheFuture', 77);"
           "CREATE TABLE other(x); INSERT INTO other VALUES ('kept');"
           "ALTER TABLE preferences ADD COLUMN modified");
    {
        const auto preferences = open();
        preferences->setText(u"mine"_s, u"2"_s);
        preferences->setText(u"new"_s, u"3"_s);
    }
    EXPECT_EQ(queried("SELECT value FROM preferences WHERE key = 'fromTheFuture'"), u"77"_s);
    EXPECT_EQ(queried("SELECT x FROM other"), u"kept"_s);
    EXPECT_EQ(queried("SELECT value FROM preferences WHERE key = 'new'"), u"3"_s);
}

TEST_F(SqlitePreferencesTest, StoreATransactionAtItsEnd) {
    const auto writer = open();
    const auto reader = open();
    {
        const Preferences::Transaction together(*writer);
        writer->setText(u"a"_s, u"1"_s);
        writer->setText(u"b"_s, u"2"_s);
        EXPECT_EQ(reader->storedValue(u"a"_s), std::nullopt);
    }
    EXPECT_EQ(reader->text(u"a"_s), u"1"_s);
    EXPECT_EQ(reader->text(u"b"_s), u"2"_s);
}

TEST_F(SqlitePreferencesTest, TellObserversOfRealChangesOnly) {
    store({{u"key"_s, u"old"_s}});
    const auto preferences = open();
    int calls = 0;
    const auto subscription = preferences->observe(u"key"_s, [&] { ++calls; });
    preferences->setText(u"key"_s, u"old"_s);
    EXPECT_EQ(calls, 0);
    preferences->setText(u"key"_s, u"new"_s);
    EXPECT_EQ(calls, 1);
    preferences->remove(u"key"_s);
    EXPECT_EQ(calls, 2);
}

TEST_F(SqlitePreferencesTest, MakeTheirFolderAndFilesForTheirOwnerAlone) {
    const mode_t before = umask(0);
    {
        const auto preferences = open();
        preferences->setBoolean(u"key"_s, true);
        EXPECT_EQ(modeOf(m_root.filePath(u"data"_s)), 0700);
        EXPECT_EQ(modeOf(m_folder), 0700);
        EXPECT_EQ(modeOf(m_file), 0600);
        EXPECT_EQ(modeOf(m_file + u"-wal"_s), 0600);
        EXPECT_EQ(modeOf(m_file + u"-shm"_s), 0600);
    }
    umask(before);
}

TEST_F(SqlitePreferencesTest, CloseAFileToOthersThatWasLeftOpenToThem) {
    store({{u"key"_s, u"value"_s}});
    QFile::setPermissions(m_file, QFile::Permissions(0x6644));
    ASSERT_EQ(modeOf(m_file), 0644);
    const auto preferences = open();
    preferences->setBoolean(u"other"_s, true);
    EXPECT_EQ(modeOf(m_file), 0600);
    EXPECT_EQ(modeOf(m_file + u"-wal"_s), 0600);
}

TEST_F(SqlitePreferencesTest, FollowASymbolicLinkToTheFile) {
    QDir().mkpath(m_folder);
    const QString elsewhere = m_root.filePath(u"elsewhere.sqlite3"_s);
    QFile::link(elsewhere, m_file);
    store({{u"key"_s, u"value"_s}});
    EXPECT_TRUE(QFileInfo(m_file).isSymLink());
    EXPECT_EQ(modeOf(elsewhere), 0600);
    EXPECT_EQ(open()->text(u"key"_s), u"value"_s);
}

TEST_F(SqlitePreferencesTest, HoldDocumentsOfTwentyFiveMegabytes) {
    const QByteArray first(25 * 1024 * 1024, 'a');
    const QByteArray second(25 * 1024 * 1024 + 1, 'b');
    {
        const auto preferences = open();
        preferences->setData(u"history"_s, first);
        EXPECT_TRUE(preferences->data(u"history"_s) == first);
        preferences->setData(u"history"_s, second);
    }
    EXPECT_TRUE(open()->data(u"history"_s) == second);
}

TEST_F(SqlitePreferencesTest, PutALongLogIntoTheFileOnceNobodyWaits) {
    const QByteArray document(10'000'000, 'x');
    const auto preferences = open();
    preferences->setData(u"document"_s, document);
    EXPECT_LT(QFileInfo(m_file).size(), document.size());
    m_clock.advance(1);
    EXPECT_GT(QFileInfo(m_file).size(), document.size());
    EXPECT_EQ(m_clock.runningTimers(), 0u);
    preferences->setBoolean(u"small"_s, true);
    EXPECT_EQ(m_clock.runningTimers(), 0u) << "a short log stays where it is";
    EXPECT_LT(QFileInfo(m_file + u"-wal"_s).size(), document.size());
    EXPECT_EQ(preferences->data(u"document"_s), document);
}

TEST_F(SqlitePreferencesTest, BeginAfreshInAnEmptyFile) {
    QDir().mkpath(m_folder);
    put(m_file, "");
    store({{u"key"_s, u"value"_s}});
    EXPECT_EQ(open()->text(u"key"_s), u"value"_s);
    EXPECT_EQ(movedAside(), QStringList());
}

} // namespace
} // namespace tolvar
