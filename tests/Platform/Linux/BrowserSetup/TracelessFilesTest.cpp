#include "Platform/Linux/BrowserSetup/TracelessFiles.h"

#include "FolderPicture.h"
#include "Support/ChildProcess.h"
#include "Support/Texts.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using test::pictureOf;
using test::putFile;

class TracelessFilesTest : public testing::Test {
protected:
    QString path(const QString& name) const { return m_root.filePath(name); }
    static QByteArray contents(const QString& path) {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_root;
};

TEST_F(TracelessFilesTest, WritesAFileAndFoldersThatOnlyTheirOwnerMayEnter) {
    ASSERT_EQ(TracelessFiles::write(path(u"a/b/file"_s), "text"), std::nullopt);
    EXPECT_EQ(contents(path(u"a/b/file"_s)), "text");
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                            QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    for (const auto& name : {u"a"_s, u"a/b"_s, u"a/b/file"_s})
        EXPECT_FALSE(QFileInfo(path(name)).permissions() & others) << name.toStdString();
}

TEST_F(TracelessFilesTest, TakesAwayWhatWasMadeForTheFile) {
    putFile(path(u"there/other"_s), "kept");
    const auto before = pictureOf(m_root.path());
    const QStringList files = {path(u"there/a/b/file"_s), path(u"there/a/c/file"_s)};
    for (const QString& file : files)
        ASSERT_EQ(TracelessFiles::write(file, "text"), std::nullopt);
    EXPECT_EQ(TracelessFiles::remove(files), std::nullopt);
    EXPECT_EQ(pictureOf(m_root.path()), before);
}

TEST_F(TracelessFilesTest, TakesFoldersAwayThatWereMadeForSeveralFilesOneAfterTheOther) {
    const auto before = pictureOf(m_root.path());
    for (const auto& name : {u"a/b/file"_s, u"a/c/file"_s})
        ASSERT_EQ(TracelessFiles::write(path(name), "text"), std::nullopt);
    EXPECT_EQ(TracelessFiles::remove({path(u"a/b/file"_s)}), std::nullopt);
    EXPECT_TRUE(QFile::exists(path(u"a/c/file"_s)));
    EXPECT_EQ(TracelessFiles::remove({path(u"a/c/file"_s)}), std::nullopt);
    EXPECT_EQ(pictureOf(m_root.path()), before);
}

TEST_F(TracelessFilesTest, LeavesFoldersThatWereThereBeforeThoughTheyAreEmpty) {
    QDir().mkpath(path(u"a/b"_s));
    const auto before = pictureOf(m_root.path());
    ASSERT_EQ(TracelessFiles::write(path(u"a/b/file"_s), "text"), std::nullopt);
    EXPECT_EQ(TracelessFiles::remove({path(u"a/b/file"_s)}), std::nullopt);
    EXPECT_EQ(pictureOf(m_root.path()), before);
}

TEST_F(TracelessFilesTest, LeavesAMadeFolderToThoseWhoPutSomethingInIt) {
    ASSERT_EQ(TracelessFiles::write(path(u"a/b/file"_s), "text"), std::nullopt);
    putFile(path(u"a/other"_s), "theirs");
    EXPECT_EQ(TracelessFiles::remove({path(u"a/b/file"_s)}), std::nullopt);
    EXPECT_EQ(QDir(path(u"a"_s)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{u"other"_s});
}

TEST_F(TracelessFilesTest, ReplacesAFileAtOnceAndNothingElse) {
    putFile(path(u"file"_s), "before");
    ASSERT_EQ(TracelessFiles::write(path(u"file"_s), "after"), std::nullopt);
    EXPECT_EQ(contents(path(u"file"_s)), "after");
    EXPECT_EQ(pictureOf(m_root.path()).size(), 1u);
}

TEST_F(TracelessFilesTest, ReplacesALinkAndLeavesWhatItPointsTo) {
    putFile(path(u"theirs"_s), "theirs");
    ASSERT_TRUE(QFile::link(path(u"theirs"_s), path(u"file"_s)));
    ASSERT_EQ(TracelessFiles::write(path(u"file"_s), "ours"), std::nullopt);
    EXPECT_FALSE(QFileInfo(path(u"file"_s)).isSymLink());
    EXPECT_EQ(contents(path(u"theirs"_s)), "theirs");
}

TEST_F(TracelessFilesTest, IsNotHeldUpByAWritingThatWasCutShort) {
    const auto before = pictureOf(m_root.path());
    putFile(path(u"file.app.tolvar.new"_s), "ha");
    ASSERT_EQ(TracelessFiles::write(path(u"file"_s), "whole"), std::nullopt);
    EXPECT_EQ(contents(path(u"file"_s)), "whole");
    putFile(path(u"file.app.tolvar.new"_s), "ha");
    EXPECT_EQ(TracelessFiles::remove({path(u"file"_s)}), std::nullopt);
    EXPECT_EQ(pictureOf(m_root.path()), before);
}

TEST_F(TracelessFilesTest, TakesAwayFoldersWhoseMakingWasCutShort) {
    const auto before = pictureOf(m_root.path());
    ASSERT_EQ(TracelessFiles::write(path(u"a/b/file"_s), "text"), std::nullopt);
    QDir(path(u"a/b"_s)).removeRecursively();
    putFile(path(u"a/b.app.tolvar.new/.app.tolvar.made"_s));
    EXPECT_EQ(TracelessFiles::remove({path(u"a/b/file"_s)}), std::nullopt);
    EXPECT_EQ(pictureOf(m_root.path()), before);
    QDir().mkpath(path(u"a.app.tolvar.new"_s));
    ASSERT_EQ(TracelessFiles::write(path(u"a/b/file"_s), "text"), std::nullopt);
    EXPECT_EQ(TracelessFiles::remove({path(u"a/b/file"_s)}), std::nullopt);
    EXPECT_EQ(pictureOf(m_root.path()), before);
}

TEST_F(TracelessFilesTest, HasNothingToRemoveWhereNothingIs) {
    EXPECT_EQ(TracelessFiles::remove({path(u"a/b/file"_s)}), std::nullopt);
    putFile(path(u"a"_s));
    EXPECT_EQ(TracelessFiles::remove({path(u"a/b/file"_s)}), std::nullopt);
}

TEST_F(TracelessFilesTest, SaysWhatIsInItsWayAndLeavesNothingBehind) {
    QDir().mkpath(path(u"a/file/full"_s));
    putFile(path(u"no-folder"_s));
    const auto before = pictureOf(m_root.path());
    EXPECT_EQ(TracelessFiles::write(path(u"a/file"_s), "text"),
              u"the file “%1” could not be written: Is a directory"_s.arg(path(u"a/file"_s)));
    EXPECT_EQ(
        TracelessFiles::write(path(u"no-folder/b/file"_s), "text"),
        u"the file “%1” could not be written: Not a directory"_s.arg(path(u"no-folder/b/file"_s)));
    EXPECT_EQ(TracelessFiles::remove({path(u"a/file"_s)}),
              u"the file “%1” could not be removed: Is a directory"_s.arg(path(u"a/file"_s)));
    EXPECT_EQ(pictureOf(m_root.path()), before);
}

TEST_F(TracelessFilesTest, SaysThatItMayNotWriteOrRemove) {
    ASSERT_EQ(TracelessFiles::write(path(u"a/file"_s), "text"), std::nullopt);
    test::withOwnMounts([&] {
        test::bindToItself(m_root.path());
        test::remount(m_root.path(), test::Mode::readOnly);
        EXPECT_EQ(
            TracelessFiles::write(path(u"b/file"_s), "text"),
            u"the file “%1” could not be written: Read-only file system"_s.arg(path(u"b/file"_s)));
        EXPECT_EQ(
            TracelessFiles::remove({path(u"a/file"_s)}),
            u"the file “%1” could not be removed: Read-only file system"_s.arg(path(u"a/file"_s)));
    });
    EXPECT_EQ(contents(path(u"a/file"_s)), "text");
}

TEST_F(TracelessFilesTest, TakesBackTheFoldersWhenTheDiskIsFull) {
    test::withOwnMounts([&] {
        test::mountSmallDisk(m_root.path(), "64k");
        const auto before = pictureOf(m_root.path());
        EXPECT_EQ(TracelessFiles::write(path(u"a/b/file"_s), QByteArray(1 << 20, 'x')),
                  u"the file “%1” could not be written: No space left on device"_s.arg(
                      path(u"a/b/file"_s)));
        EXPECT_EQ(pictureOf(m_root.path()), before);
    });
}

} // namespace
} // namespace tolvar
