#include "Platform/Common/PreferencesTest.h"

#include <QRegularExpression>

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype pageSize = 16384;

class DamagedPreferencesTest : public test::PreferencesTest {
protected:
    /// Many small values around two documents of many pages, in a file of its own without a log.
    void storeMuch() {
        const auto preferences = open();
        const Preferences::Transaction together(*preferences);
        for (int i = 0; i < 300; ++i)
            preferences->setText(u"key %1"_s.arg(i), smallValue(i));
        preferences->setData(u"spoilt"_s, QByteArray(300'000, 'S'));
        preferences->setData(u"healthy"_s, QByteArray(300'000, 'H'));
        preferences->setBoolean(u"last"_s, true);
    }
    static QString smallValue(int number) {
        return u"value %1 "_s.arg(number) + QString(500, u'.');
    }
    void overwritePage(qsizetype page, char filling) {
        QFile file(m_file);
        ASSERT_TRUE(file.open(QFile::ReadWrite));
        ASSERT_TRUE(file.seek(page * pageSize));
        file.write(QByteArray(pageSize, filling));
    }
    /// The number of a page that holds nothing but a part of the document filled with `filling`.
    qsizetype documentPage(char filling) {
        return contents(m_file).indexOf(QByteArray(2 * pageSize - 8, filling).left(pageSize - 4)) /
               pageSize;
    }
    qsizetype rootPage(const char* name) {
        const QByteArray sql = QByteArray("SELECT rootpage FROM sqlite_schema WHERE name = '") +
                               name + QByteArray("'");
        return queried(sql.constData()).toInt() - 1;
    }
    int readableKeys(const Preferences& preferences) {
        int count = 0;
        for (int i = 0; i < 300; ++i)
            count += preferences.text(u"key %1"_s.arg(i)) == smallValue(i) ? 1 : 0;
        return count;
    }
    /// One line was logged that names both files, and one file was moved aside.
    void expectMovedAside() {
        ASSERT_EQ(movedAside().size(), 1);
        EXPECT_TRUE(movedAside().first().contains(
            QRegularExpression(u"^preferences\\.sqlite3\\.corrupt-\\d{8}T\\d{6}\\.\\d{3}Z$"_s)))
            << movedAside().first().toStdString();
        const auto lines = m_log.take();
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_EQ(lines.front().category, u"Preferences"_s);
        EXPECT_TRUE(lines.front().message.contains(m_file + u" was damaged"_s));
        EXPECT_TRUE(lines.front().message.contains(movedAside().first()));
    }
    /// What is set now is there at the next launch, without another word.
    void expectUsable() {
        store({{u"new"_s, u"value"_s}});
        EXPECT_EQ(open()->text(u"new"_s), u"value"_s);
        EXPECT_TRUE(m_log.take().empty());
    }
    void expectReplaced(const QByteArray& bytes) {
        QDir().mkpath(m_folder);
        put(m_file, bytes);
        EXPECT_EQ(open()->storedValue(u"key"_s), std::nullopt);
        expectMovedAside();
        EXPECT_EQ(contents(m_folder + u'/' + movedAside().value(0)), bytes);
        expectUsable();
    }
};

TEST_F(DamagedPreferencesTest, MoveATextFileAside) {
    expectReplaced("[Preferences]\nsoundVolume=0.3\n" + QByteArray(5000, 'x'));
}

TEST_F(DamagedPreferencesTest, MoveAFileOfAFewBytesAside) {
    expectReplaced("hi");
}

TEST_F(DamagedPreferencesTest, MoveAFileOfZeroesAside) {
    expectReplaced(QByteArray(20'000, '\0'));
}

TEST_F(DamagedPreferencesTest, MoveAFolderInTheirPlaceAsideWithWhatItHolds) {
    QDir().mkpath(m_file + u"/inner"_s);
    EXPECT_EQ(open()->storedValue(u"key"_s), std::nullopt);
    expectMovedAside();
    EXPECT_TRUE(QDir(m_folder + u'/' + movedAside().value(0) + u"/inner"_s).exists());
    expectUsable();
}

TEST_F(DamagedPreferencesTest, MoveAPipeInTheirPlaceAside) {
    QDir().mkpath(m_folder);
    ASSERT_EQ(mkfifo(QFile::encodeName(m_file).constData(), 0600), 0);
    EXPECT_EQ(open()->storedValue(u"key"_s), std::nullopt);
    expectMovedAside();
    expectUsable();
}

TEST_F(DamagedPreferencesTest, KeepAllButTheDocumentWithASpoiltPage) {
    storeMuch();
    overwritePage(documentPage('S'), '\xFF');
    {
        const auto preferences = open();
        EXPECT_EQ(readableKeys(*preferences), 300);
        EXPECT_EQ(preferences->data(u"spoilt"_s), std::nullopt);
        expectMovedAside();
    }
    const auto preferences = open();
    EXPECT_EQ(readableKeys(*preferences), 300);
    EXPECT_EQ(preferences->data(u"spoilt"_s), std::nullopt);
    EXPECT_EQ(preferences->data(u"healthy"_s), QByteArray(300'000, 'H'));
    EXPECT_TRUE(preferences->boolean(u"last"_s));
    expectUsable();
}

TEST_F(DamagedPreferencesTest, NoticeASpoiltPageWhenWritingAndStoreWhatWasSet) {
    storeMuch();
    overwritePage(documentPage('S'), '\xFF');
    open()->setData(u"spoilt"_s, "new");
    expectMovedAside();
    const auto preferences = open();
    EXPECT_EQ(preferences->data(u"spoilt"_s), "new");
    EXPECT_EQ(readableKeys(*preferences), 300);
    EXPECT_EQ(preferences->data(u"healthy"_s), QByteArray(300'000, 'H'));
}

TEST_F(DamagedPreferencesTest, KeepEverythingWhenOnlyTheIndexIsSpoilt) {
    storeMuch();
    overwritePage(rootPage("sqlite_autoindex_preferences_1"), '\xFF');
    EXPECT_EQ(readableKeys(*open()), 300);
    expectMovedAside();
    const auto preferences = open();
    EXPECT_EQ(preferences->data(u"spoilt"_s), QByteArray(300'000, 'S'));
    EXPECT_EQ(preferences->data(u"healthy"_s), QByteArray(300'000, 'H'));
    EXPECT_TRUE(preferences->boolean(u"last"_s));
}

TEST_F(DamagedPreferencesTest, KeepWhatStandsAroundASpoiltPageOfTheTable) {
    storeMuch();
    overwritePage(contents(m_file).indexOf("key 150value 150 ") / pageSize, '\xFF');
    {
        const auto preferences = open();
        const int readable = readableKeys(*preferences);
        EXPECT_GT(readable, 50);
        EXPECT_LT(readable, 300);
        EXPECT_EQ(preferences->text(u"key 0"_s), smallValue(0));
        EXPECT_EQ(preferences->text(u"key 299"_s), smallValue(299));
        EXPECT_EQ(preferences->text(u"key 150"_s), QString());
        EXPECT_EQ(preferences->data(u"healthy"_s), QByteArray(300'000, 'H'));
    }
    expectMovedAside();
    expectUsable();
}

TEST_F(DamagedPreferencesTest, BeginAfreshWhenTheWholeTableIsSpoilt) {
    storeMuch();
    overwritePage(rootPage("preferences"), '\xFF');
    EXPECT_EQ(readableKeys(*open()), 0);
    expectMovedAside();
    expectUsable();
}

TEST_F(DamagedPreferencesTest, KeepWhatIsLeftOfATruncatedFile) {
    storeMuch();
    ASSERT_TRUE(QFile::resize(m_file, QFileInfo(m_file).size() / 2 / pageSize * pageSize));
    const int readable = readableKeys(*open());
    EXPECT_GT(readable, 100);
    EXPECT_LT(readable, 300);
    expectMovedAside();
    EXPECT_EQ(open()->data(u"healthy"_s), QByteArray(300'000, 'H'));
    EXPECT_EQ(readableKeys(*open()), readable);
    expectUsable();
}

TEST_F(DamagedPreferencesTest, PassOverAGarbledLog) {
    store({{u"key"_s, u"value"_s}});
    put(m_file + u"-wal"_s, QByteArray(50'000, 'g'));
    put(m_file + u"-shm"_s, QByteArray(32'768, 'g'));
    EXPECT_EQ(open()->text(u"key"_s), u"value"_s);
    EXPECT_EQ(movedAside(), QStringList());
    expectUsable();
}

TEST_F(DamagedPreferencesTest, MoveTheLogAsideWithItsFile) {
    storeMuch();
    const qsizetype spoilt = documentPage('S');
    // A process that ended without closing leaves the log behind.
    auto crashed = open();
    crashed->setText(u"in the log"_s, u"value"_s);
    const QByteArray file = contents(m_file);
    const QByteArray log = contents(m_file + u"-wal"_s);
    crashed.reset();
    put(m_file, file);
    put(m_file + u"-wal"_s, log);
    overwritePage(spoilt, '\xFF');

    const auto preferences = open();
    EXPECT_EQ(preferences->data(u"spoilt"_s), std::nullopt);
    expectMovedAside();
    EXPECT_EQ(contents(m_folder + u'/' + movedAside().value(0) + u"-wal"_s), log);
    EXPECT_EQ(preferences->text(u"in the log"_s), u"value"_s);
    EXPECT_EQ(readableKeys(*preferences), 300);
}

TEST_F(DamagedPreferencesTest, CarryOverFromATableThatWouldChangeTypes) {
    QDir().mkpath(m_folder);
    runSql("CREATE TABLE preferences(key TEXT PRIMARY KEY, value TEXT);"
           "INSERT INTO preferences VALUES ('text', 'kept')");
    {
        const auto preferences = open();
        EXPECT_EQ(preferences->text(u"text"_s), u"kept"_s);
        preferences->setNumber(u"number"_s, 0.5);
    }
    expectMovedAside();
    EXPECT_EQ(open()->number(u"number"_s), 0.5);
    EXPECT_EQ(open()->text(u"text"_s), u"kept"_s);
}

class ForeignTableTest : public DamagedPreferencesTest,
                         public testing::WithParamInterface<const char*> {};

TEST_P(ForeignTableTest, IsMovedAsideWithItsFile) {
    QDir().mkpath(m_folder);
    runSql(GetParam());
    {
        const auto preferences = open();
        preferences->setText(u"key"_s, u"one"_s);
        preferences->setText(u"key"_s, u"two"_s);
    }
    expectMovedAside();
    EXPECT_EQ(open()->text(u"key"_s), u"two"_s);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, ForeignTableTest,
    testing::Values("CREATE TABLE preferences(name, content)",
                    "CREATE TABLE preferences(key TEXT, value)",
                    "CREATE TABLE preferences(key INTEGER PRIMARY KEY, value)",
                    "CREATE TABLE preferences(key TEXT PRIMARY KEY, value INTEGER)",
                    "CREATE TABLE preferences(key TEXT PRIMARY KEY, value, owner NOT NULL)",
                    "CREATE TABLE t(key TEXT PRIMARY KEY, value);"
                    "CREATE VIEW preferences AS SELECT * FROM t"));

TEST_F(DamagedPreferencesTest, MoveEachDamagedFileToANameOfItsOwn) {
    QDir().mkpath(m_folder);
    for (int i = 1; i <= 5; ++i) {
        put(m_file, "damaged");
        open();
        EXPECT_EQ(movedAside().size(), i);
        EXPECT_EQ(m_log.take().size(), 1u);
    }
}

} // namespace
} // namespace tolvar
