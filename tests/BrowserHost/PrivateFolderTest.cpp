#include "BrowserHost/PrivateFolder.h"

#include "Support/ChildProcess.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace tolvar::test {
namespace {

TEST(PrivateFolderPath, FollowsTheBaseDirectories) {
    const QTemporaryDir runtime;
    const std::string folder = runtime.path().toStdString();
    ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    ::setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(PrivateFolder::path(), folder + "/tolvar");
    for (const std::string unusable : {"relative", "/proc/absent", "/proc/version"}) {
        ::setenv("XDG_RUNTIME_DIR", unusable.c_str(), 1);
        EXPECT_EQ(PrivateFolder::path(), "/data/tolvar/browser") << unusable;
    }
    ::unsetenv("XDG_RUNTIME_DIR");
    ::unsetenv("XDG_DATA_HOME");
    ::setenv("HOME", "/home/somebody", 1);
    EXPECT_EQ(PrivateFolder::path(), "/home/somebody/.local/share/tolvar/browser");
    ::unsetenv("HOME");
    EXPECT_EQ(PrivateFolder::path(), "");
}

TEST(PrivateFolderPath, IsInTheDataFolderWhereTheRuntimeFolderCannotBeWrittenTo) {
    const QTemporaryDir runtime;
    ::setenv("XDG_RUNTIME_DIR", runtime.path().toStdString().c_str(), 1);
    ::setenv("XDG_DATA_HOME", "/data", 1);
    withOwnMounts([&] {
        bindToItself(runtime.path());
        remount(runtime.path(), Mode::readOnly);
        EXPECT_EQ(PrivateFolder::path(), "/data/tolvar/browser");
    });
}

class AFolder : public testing::Test {
protected:
    QTemporaryDir above;
    std::string path = above.filePath(QStringLiteral("some/where/tolvar")).toStdString();
};

TEST_F(AFolder, IsMadeForItsOwnerAloneWithThoseAboveIt) {
    PrivateFolder::make(path);
    const Descriptor folder = PrivateFolder::open(path);
    ASSERT_TRUE(folder);
    EXPECT_TRUE(PrivateFolder::isClosed(folder));
}

TEST_F(AFolder, IsNotClosedWhileAnybodyElseMayDoAnything) {
    PrivateFolder::make(path);
    const Descriptor folder = PrivateFolder::open(path);
    for (const mode_t mode : {0701, 0702, 0704, 0710, 0720, 0740}) {
        ::chmod(path.c_str(), mode);
        EXPECT_FALSE(PrivateFolder::isClosed(folder)) << std::oct << mode;
    }
}

TEST_F(AFolder, IsNotOpenedBehindALink) {
    const std::string link = above.filePath(QStringLiteral("link")).toStdString();
    PrivateFolder::make(path);
    ASSERT_EQ(::symlink(path.c_str(), link.c_str()), 0);
    EXPECT_FALSE(PrivateFolder::open(link));
}

TEST_F(AFolder, IsNotOpenedWhenItIsSomebodyElses) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a folder away";
    PrivateFolder::make(path);
    ASSERT_EQ(::chown(path.c_str(), 65534, 65534), 0);
    EXPECT_FALSE(PrivateFolder::open(path));
    EXPECT_EQ(errno, EPERM);
}

TEST_F(AFolder, HoldsNoPrivateSocketButASocket) {
    PrivateFolder::make(path);
    const Descriptor folder = PrivateFolder::open(path);
    EXPECT_FALSE(PrivateFolder::privateSocket(folder, "socket"));
    ASSERT_EQ(::mknodat(folder.number(), "socket", S_IFSOCK | 0600, 0), 0);
    EXPECT_TRUE(PrivateFolder::privateSocket(folder, "socket"));
    ASSERT_EQ(::symlinkat("socket", folder.number(), "link"), 0);
    EXPECT_FALSE(PrivateFolder::privateSocket(folder, "link"));
    ASSERT_EQ(::mknodat(folder.number(), "file", S_IFREG | 0600, 0), 0);
    EXPECT_FALSE(PrivateFolder::privateSocket(folder, "file"));
    ASSERT_EQ(::fchmodat(folder.number(), "socket", 0660, 0), 0);
    EXPECT_FALSE(PrivateFolder::privateSocket(folder, "socket"));
}

TEST(APeer, IsOursWhenItRunsAsWeDo) {
    int ends[2] = {-1, -1};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    const Descriptor one(ends[0]);
    const Descriptor other(ends[1]);
    EXPECT_TRUE(PrivateFolder::isPeerOurs(one.number()));
    EXPECT_FALSE(PrivateFolder::isPeerOurs(-1));
}

} // namespace
} // namespace tolvar::test
