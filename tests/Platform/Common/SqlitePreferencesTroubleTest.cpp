#include "Platform/Common/PreferencesTest.h"
#include "Support/ChildProcess.h"

#include <QFileInfo>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

/// Places that cannot be written or read for a while, without being damaged.
class TroubledPreferencesTest : public test::PreferencesTest {
protected:
    void expectOneLine(const char16_t* part) {
        const auto lines = m_log.take();
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_EQ(lines.front().category, u"Preferences"_s);
        EXPECT_TRUE(lines.front().message.contains(QString::fromUtf16(part)))
            << lines.front().message.toStdString();
    }
    /// Takes every free block of the file system that `folder` is on.
    static void fill(const QString& folder) {
        QFile file(folder + u"/filler"_s);
        ASSERT_TRUE(file.open(QFile::WriteOnly | QFile::Append | QFile::Unbuffered));
        const QByteArray block(4096, 'f');
        while (file.write(block) == block.size()) {
        }
    }
    static void makeRoom(const QString& folder) { QFile::remove(folder + u"/filler"_s); }

    /// Lets what reads from the open preferences file read from `handle` instead.
    void replaceHandle(int handle) {
        const QString path = QFileInfo(m_file).canonicalFilePath();
        int replaced = 0;
        for (int other = 3; other < 256; ++other)
            if (other != handle && QFile::symLinkTarget(u"/proc/self/fd/%1"_s.arg(other)) == path)
                replaced += dup2(handle, other) == other ? 1 : 0;
        EXPECT_EQ(replaced, 1);
    }

    /// Sets values where nothing can be stored: they stay readable, and one line says why.
    void expectLifeInMemory(SqlitePreferences& preferences) {
        preferences.setText(u"set"_s, u"first"_s);
        preferences.setText(u"set"_s, u"second"_s);
        preferences.setBoolean(u"also set"_s, true);
        preferences.remove(u"old"_s);
        EXPECT_EQ(preferences.text(u"set"_s), u"second"_s);
        EXPECT_TRUE(preferences.boolean(u"also set"_s));
        EXPECT_EQ(preferences.storedValue(u"old"_s), std::nullopt);
        expectOneLine(u"cannot be stored");
    }
    void expectAllStored() {
        const auto preferences = open();
        EXPECT_EQ(preferences->text(u"set"_s), u"second"_s);
        EXPECT_TRUE(preferences->boolean(u"also set"_s));
        EXPECT_EQ(preferences->storedValue(u"old"_s), std::nullopt);
        EXPECT_EQ(preferences->text(u"kept"_s), u"value"_s);
    }
};

TEST_F(TroubledPreferencesTest, ReadWhatIsInAReadOnlyFolderAndStoreWhenItIsWritableAgain) {
    store({{u"kept"_s, u"value"_s}, {u"old"_s, u"value"_s}});
    test::withOwnMounts([&] {
        test::bindToItself(m_folder);
        test::remount(m_folder, test::Mode::readOnly);
        const auto preferences = open();
        EXPECT_EQ(preferences->text(u"kept"_s), u"value"_s);
        expectLifeInMemory(*preferences);

        test::remount(m_folder, test::Mode::readWrite);
        preferences->setText(u"kept"_s, u"value"_s);
        expectAllStored();
    });
    expectAllStored();
    EXPECT_EQ(movedAside(), QStringList());
}

TEST_F(TroubledPreferencesTest, ReadTheLogOfACrashInAReadOnlyFolder) {
    store({{u"kept"_s, u"value"_s}});
    test::ChildProcess crashing([&] {
        open()->setText(u"kept"_s, u"newer"_s);
        const auto preferences = open();
        preferences->setText(u"kept"_s, u"newest"_s);
        _exit(0);
    });
    ASSERT_TRUE(crashing.succeeds());
    ASSERT_GT(QFileInfo(m_file + u"-wal"_s).size(), 0);
    test::withOwnMounts([&] {
        test::bindToItself(m_folder);
        test::remount(m_folder, test::Mode::readOnly);
        EXPECT_EQ(open()->text(u"kept"_s), u"newest"_s);
        expectOneLine(u"cannot be stored");
    });
}

TEST_F(TroubledPreferencesTest, LiveInMemoryWhereTheirFolderCannotBeMade) {
    test::withOwnMounts([&] {
        test::bindToItself(m_root.path());
        test::remount(m_root.path(), test::Mode::readOnly);
        const auto preferences = open();
        EXPECT_EQ(preferences->storedValue(u"set"_s), std::nullopt);
        expectLifeInMemory(*preferences);

        test::remount(m_root.path(), test::Mode::readWrite);
        preferences->setText(u"kept"_s, u"value"_s);
        expectAllStored();
    });
}

TEST_F(TroubledPreferencesTest, StoreAtTheLatestWhenTheyGoWhatCouldNotBeStoredBefore) {
    store({{u"kept"_s, u"value"_s}});
    test::withOwnMounts([&] {
        test::bindToItself(m_folder);
        test::remount(m_folder, test::Mode::readOnly);
        auto preferences = open();
        expectLifeInMemory(*preferences);
        test::remount(m_folder, test::Mode::readWrite);
        preferences.reset();
        expectAllStored();
    });
}

TEST_F(TroubledPreferencesTest, StoreByThemselvesWhatALockKeptInMemory) {
    store({{u"kept"_s, u"value"_s}});
    const auto preferences = open();
    {
        sqlite::Connection other;
        ASSERT_EQ(other.open(QFile::encodeName(m_file), SQLITE_OPEN_READWRITE), SQLITE_OK);
        ASSERT_EQ(other.execute("BEGIN IMMEDIATE"), SQLITE_OK);
        preferences->setText(u"set"_s, u"late"_s);
        m_clock.advance(6);
        expectOneLine(u"cannot be stored");
    }
    EXPECT_EQ(queried("SELECT value FROM preferences WHERE key = 'set'"), QString());
    m_clock.advance(5);
    EXPECT_EQ(queried("SELECT value FROM preferences WHERE key = 'set'"), u"late"_s);
    EXPECT_EQ(m_clock.runningTimers(), 0u);
}

TEST_F(TroubledPreferencesTest, TellOfTroubleAgainOnlyAfterASuccess) {
    const auto preferences = open();
    sqlite::Connection other;
    other.open(QFile::encodeName(m_file), SQLITE_OPEN_READWRITE);
    for (int trouble = 0; trouble < 2; ++trouble) {
        ASSERT_EQ(other.execute("BEGIN IMMEDIATE"), SQLITE_OK);
        preferences->setText(u"set"_s, u"first"_s);
        expectOneLine(u"cannot be stored");
        preferences->setText(u"set"_s, u"second"_s);
        EXPECT_TRUE(m_log.take().empty());
        ASSERT_EQ(other.execute("COMMIT"), SQLITE_OK);
        preferences->setText(u"set"_s, u"third"_s);
        EXPECT_TRUE(m_log.take().empty());
    }
}

TEST_F(TroubledPreferencesTest, KeepAFullDiskInMemoryAndStoreItAllWhenThereIsRoom) {
    QDir().mkpath(m_folder);
    test::withOwnMounts([&] {
        test::mountSmallDisk(m_folder, "2m");
        store({{u"kept"_s, u"value"_s}, {u"old"_s, u"value"_s}});
        const auto preferences = open();
        const QByteArray large(300'000, 'L');
        fill(m_folder);
        {
            const Preferences::Transaction together(*preferences);
            preferences->setBoolean(u"small"_s, true);
            preferences->setData(u"large"_s, large);
        }
        EXPECT_EQ(preferences->data(u"large"_s), large);
        expectOneLine(u"full");
        EXPECT_EQ(open()->storedValue(u"small"_s), std::nullopt) << "all or none";

        makeRoom(m_folder);
        preferences->setText(u"set"_s, u"second"_s);
        preferences->setBoolean(u"also set"_s, true);
        preferences->remove(u"old"_s);
        EXPECT_EQ(open()->data(u"large"_s), large);
        EXPECT_TRUE(open()->boolean(u"small"_s));
        expectAllStored();
        EXPECT_EQ(movedAside(), QStringList());
    });
}

TEST_F(TroubledPreferencesTest, ReadFromADiskThatWasFullBeforeTheyOpened) {
    QDir().mkpath(m_folder);
    test::withOwnMounts([&] {
        test::mountSmallDisk(m_folder, "2m");
        store({{u"kept"_s, u"value"_s}, {u"old"_s, u"value"_s}});
        fill(m_folder);
        const auto preferences = open();
        EXPECT_EQ(preferences->text(u"kept"_s), u"value"_s);
        expectLifeInMemory(*preferences);

        makeRoom(m_folder);
        preferences->setText(u"kept"_s, u"value"_s);
        expectAllStored();
    });
}

TEST_F(TroubledPreferencesTest, BeginOnAFullDiskInMemory) {
    QDir().mkpath(m_folder);
    test::withOwnMounts([&] {
        test::mountSmallDisk(m_folder, "2m");
        fill(m_folder);
        const auto preferences = open();
        expectLifeInMemory(*preferences);
        makeRoom(m_folder);
        preferences->setText(u"kept"_s, u"value"_s);
        expectAllStored();
        EXPECT_EQ(movedAside(), QStringList());
    });
}

TEST_F(TroubledPreferencesTest, KeepADamagedFileThatCannotBeMovedAndReadWhatItStillTells) {
    store({{u"kept"_s, u"value"_s}});
    runSql("DROP TABLE preferences; CREATE TABLE preferences(key TEXT PRIMARY KEY, value TEXT);"
           "INSERT INTO preferences VALUES ('kept', 'value')");
    const QByteArray before = contents(m_file);
    test::withOwnMounts([&] {
        test::bindToItself(m_folder);
        test::remount(m_folder, test::Mode::readOnly);
        const auto preferences = open();
        EXPECT_EQ(preferences->text(u"kept"_s), u"value"_s);
        expectLifeInMemory(*preferences);
    });
    EXPECT_EQ(contents(m_file), before);
    EXPECT_EQ(movedAside(), QStringList());
}

TEST_F(TroubledPreferencesTest, TakeALockHeldElsewhereForNoDamage) {
    store({{u"kept"_s, u"value"_s}, {u"old"_s, u"value"_s}});
    const auto preferences = open();
    {
        sqlite::Connection other;
        other.open(QFile::encodeName(m_file), SQLITE_OPEN_READWRITE);
        ASSERT_EQ(other.execute("BEGIN IMMEDIATE"), SQLITE_OK);
        EXPECT_EQ(preferences->text(u"kept"_s), u"value"_s);
        expectLifeInMemory(*preferences);
    }
    preferences->setText(u"kept"_s, u"value"_s);
    expectAllStored();
    EXPECT_EQ(movedAside(), QStringList());
}

TEST_F(TroubledPreferencesTest, OpenOnAFileThatAnotherProcessKeepsLocked) {
    store({{u"kept"_s, u"value"_s}, {u"old"_s, u"value"_s}});
    {
        auto other = std::make_unique<sqlite::Connection>();
        other->open(QFile::encodeName(m_file), SQLITE_OPEN_READWRITE);
        ASSERT_EQ(other->execute("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE"), SQLITE_OK);
        const auto preferences = open();
        EXPECT_EQ(preferences->text(u"kept"_s), u"value"_s);
        preferences->setBoolean(u"also set"_s, true);
        preferences->setText(u"set"_s, u"second"_s);
        preferences->remove(u"old"_s);
        expectOneLine(u"locked");
        other.reset();
        preferences->setText(u"kept"_s, u"value"_s);
    }
    expectAllStored();
    EXPECT_EQ(movedAside(), QStringList());
}

TEST_F(TroubledPreferencesTest, TakeAFailingDiskForNoDamage) {
    const QByteArray document(20'000'000, 'd');
    open()->setData(u"document"_s, document);
    test::ChildProcess child([&] {
        const auto preferences = open();
        // A handle that cannot read lets every read of the file fail.
        replaceHandle(::open(QFile::encodeName(m_file).constData(), O_WRONLY));
        EXPECT_TRUE(preferences->data(u"document"_s) == std::nullopt);
        expectOneLine(u"cannot be read");
    });
    EXPECT_TRUE(child.succeeds());
    EXPECT_EQ(movedAside(), QStringList());
    EXPECT_TRUE(open()->data(u"document"_s) == document);
}

TEST_F(TroubledPreferencesTest, LookTwiceBeforeTheyMoveAFileAside) {
    const QByteArray document(20'000'000, 'd');
    open()->setData(u"document"_s, document);
    test::ChildProcess child([&] {
        const auto preferences = open();
        // All of a sudden the file seems to be empty; opened once more it is as it was.
        replaceHandle(::open("/dev/null", O_RDWR));
        EXPECT_TRUE(preferences->data(u"document"_s) == document);
        EXPECT_TRUE(m_log.take().empty());
    });
    EXPECT_TRUE(child.succeeds());
    EXPECT_EQ(movedAside(), QStringList());
}

TEST_F(TroubledPreferencesTest, MakeAFileThatIsDeletedUnderThemAnew) {
    store({{u"kept"_s, u"value"_s}});
    const auto preferences = open();
    QDir(m_folder).removeRecursively();
    preferences->setText(u"new"_s, u"value"_s);
    EXPECT_EQ(preferences->text(u"kept"_s), u"value"_s);
    EXPECT_EQ(open()->text(u"kept"_s), u"value"_s);
    EXPECT_EQ(open()->text(u"new"_s), u"value"_s);
}

TEST_F(TroubledPreferencesTest, GoOnInAFileThatReplacesTheirs) {
    store({{u"source"_s, u"backup"_s}});
    const QByteArray backup = contents(m_file);
    store({{u"source"_s, u"present"_s}});
    const auto preferences = open();
    QFile::remove(m_file);
    put(m_file, backup);
    preferences->setText(u"new"_s, u"value"_s);
    EXPECT_EQ(preferences->text(u"source"_s), u"backup"_s);
    EXPECT_EQ(open()->text(u"new"_s), u"value"_s);
    EXPECT_EQ(movedAside(), QStringList());
}

} // namespace
} // namespace tolvar
