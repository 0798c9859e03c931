#include "Platform/Linux/Browsers/CompanionSocket.h"

#include "Platform/Linux/Browsers/PlayedCompanion.h"
#include "Support/ChildProcess.h"
#include "Support/Texts.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class ACompanionSocket : public testing::Test {
protected:
    /// Listens; nothing, and why, when that is not possible.
    std::optional<CompanionSocket> listen() {
        auto listening = CompanionSocket::listen(folder);
        if (const auto* reason = std::get_if<QString>(&listening)) {
            lastReason = *reason;
            return std::nullopt;
        }
        return std::get<CompanionSocket>(std::move(listening));
    }

    static mode_t modeOf(const std::string& path) {
        struct stat facts = {};
        return ::lstat(path.c_str(), &facts) == 0 ? facts.st_mode : 0;
    }

    bool canBeReached() const { return PlayedCompanion(folder).isConnected(); }

    QTemporaryDir above;
    std::string folder = above.filePath(u"runtime/tolvar"_s).toStdString();
    std::string socket = folder + "/browser.sock";
    QString lastReason;
};

TEST_F(ACompanionSocket, IsClosedToOthersInAFolderClosedToOthers) {
    const auto listening = listen();
    ASSERT_TRUE(listening);
    EXPECT_EQ(modeOf(folder), S_IFDIR | 0700U);
    EXPECT_EQ(modeOf(socket), S_IFSOCK | 0600U);
    EXPECT_TRUE(canBeReached());
}

TEST_F(ACompanionSocket, IsAloneInItsFolderAndLeavesNothingThere) {
    auto listening = listen();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
    listening.reset();
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(ACompanionSocket, ClosesAFolderThatWasOpenToOthers) {
    std::filesystem::create_directories(folder);
    ::chmod(folder.c_str(), 0777);
    EXPECT_TRUE(listen());
    EXPECT_EQ(modeOf(folder), S_IFDIR | 0700U);
}

TEST_F(ACompanionSocket, TakesThePlaceOfWhatAKilledProgramLeft) {
    ChildProcess program([this] {
        const auto listening = listen();
        ::kill(::getpid(), SIGKILL);
    });
    EXPECT_FALSE(program.succeeds());
    EXPECT_TRUE(S_ISSOCK(modeOf(socket)));
    EXPECT_FALSE(canBeReached());
    const auto listening = listen();
    ASSERT_TRUE(listening);
    EXPECT_TRUE(canBeReached());
}

TEST_F(ACompanionSocket, LeavesTheSocketOfAProgramThatRunsAlone) {
    const auto first = listen();
    ASSERT_TRUE(first);
    EXPECT_FALSE(listen());
    EXPECT_TRUE(lastReason.startsWith(u"another program listens in "_s))
        << lastReason.toStdString();
    EXPECT_TRUE(canBeReached());
}

TEST_F(ACompanionSocket, CanBeMadeAnewWhenItIsGone) {
    ASSERT_TRUE(listen());
    const auto next = listen();
    ASSERT_TRUE(next);
    EXPECT_TRUE(canBeReached());
}

TEST_F(ACompanionSocket, ReplacesLinksInItsPlaceAndTouchesNothingBehindThem) {
    const std::string treasure = above.filePath(u"treasure"_s).toStdString();
    QFile file(QString::fromStdString(treasure));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    ASSERT_EQ(file.write("gold"), 4);
    file.close();
    std::filesystem::create_directories(folder);
    std::filesystem::create_symlink(treasure, socket);
    std::filesystem::create_symlink(treasure, socket + ".new");
    const mode_t mode = modeOf(treasure);
    EXPECT_TRUE(listen());
    EXPECT_EQ(std::filesystem::file_size(treasure), 4U);
    EXPECT_EQ(modeOf(treasure), mode);
}

TEST_F(ACompanionSocket, IsNotMadeBehindALinkToAFolder) {
    const std::string elsewhere = above.filePath(u"elsewhere"_s).toStdString();
    std::filesystem::create_directories(elsewhere);
    std::filesystem::create_directories(std::filesystem::path(folder).parent_path());
    std::filesystem::create_directory_symlink(elsewhere, folder);
    EXPECT_FALSE(listen());
    EXPECT_TRUE(lastReason.contains(u"cannot be used"_s)) << lastReason.toStdString();
    EXPECT_TRUE(std::filesystem::is_empty(elsewhere));
}

TEST_F(ACompanionSocket, IsNotMadeInAFolderOfSomebodyElse) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a folder away";
    std::filesystem::create_directories(folder);
    ASSERT_EQ(::chown(folder.c_str(), 65534, 65534), 0);
    EXPECT_FALSE(listen());
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(ACompanionSocket, IsNotMadeInPlaceOfAFolder) {
    std::filesystem::create_directories(socket);
    EXPECT_FALSE(listen());
    EXPECT_TRUE(lastReason.startsWith(u"no socket in "_s)) << lastReason.toStdString();
}

TEST_F(ACompanionSocket, NeedsAFolder) {
    folder.clear();
    EXPECT_FALSE(listen());
}

TEST_F(ACompanionSocket, LivesInAFolderWithALongPath) {
    folder = above.filePath(QString(u'x').repeated(200)).toStdString() + "/tolvar";
    socket = folder + "/browser.sock";
    const auto listening = listen();
    ASSERT_TRUE(listening) << lastReason.toStdString();
    EXPECT_EQ(modeOf(socket), S_IFSOCK | 0600U);
}

} // namespace
} // namespace tolvar::test
