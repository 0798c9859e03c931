#include "Platform/Linux/Desktop/XdgLoginItemService.h"

#include "Models/LoginItem.h"
#include "Platform/Linux/Desktop/DesktopEntryFile.h"
#include "Platform/Linux/Desktop/ExecLine.h"
#include "Support/ChildProcess.h"
#include "Support/Texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

class XdgLoginItemServiceTest : public testing::Test {
protected:
    XdgLoginItemServiceTest() { makeProgram(m_program); }

    static void makeProgram(const QString& path) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void put(const QByteArray& contents) {
        QDir().mkpath(QFileInfo(m_entry).path());
        QFile file(m_entry);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(contents);
    }
    XdgLoginItemService service() const { return {m_program, m_root.filePath(u"config"_s)}; }

    QTemporaryDir m_root;
    QString m_program = m_root.filePath(u"bin/tolvar"_s);
    QString m_entry = m_root.filePath(u"config/autostart/app.tolvar.Tolvar.desktop"_s);
};

TEST_F(XdgLoginItemServiceTest, IsRegisteredAndWithdrawn) {
    EXPECT_EQ(service().status(), LoginItemStatus::notRegistered);
    EXPECT_EQ(service().registerItem(), std::nullopt);
    EXPECT_EQ(service().status(), LoginItemStatus::enabled);
    EXPECT_EQ(service().registerItem(), std::nullopt);
    EXPECT_EQ(service().status(), LoginItemStatus::enabled);
    EXPECT_EQ(service().unregisterItem(), std::nullopt);
    EXPECT_EQ(service().status(), LoginItemStatus::notRegistered);
    EXPECT_FALSE(QFile::exists(m_entry));
    EXPECT_EQ(service().unregisterItem(), std::nullopt);
}

TEST_F(XdgLoginItemServiceTest, StartsTheProgramWhateverItsPath) {
    m_program = m_root.filePath(u"100% \"odd\" $HOME `x` back\\slash/it's/tolvar"_s);
    makeProgram(m_program);
    ASSERT_EQ(service().registerItem(), std::nullopt);
    const auto entry = DesktopEntryFile::read(m_entry);
    ASSERT_TRUE(entry);
    EXPECT_EQ(execArguments(entry->string(u"Exec"_s)), QStringList{m_program});
}

TEST_F(XdgLoginItemServiceTest, WritesAnEntryThatIsValid) {
    const QString validator = QStandardPaths::findExecutable(u"desktop-file-validate"_s);
    if (validator.isEmpty())
        GTEST_SKIP() << "desktop-file-validate is not installed";
    ASSERT_EQ(service().registerItem(), std::nullopt);
    QProcess process;
    process.start(validator, {m_entry});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(process.readAll().toStdString(), "");
}

TEST_F(XdgLoginItemServiceTest, WaitsForApprovalOnceTheDesktopSwitchedItOff) {
    for (const QByteArray mark : {"Hidden=true", "X-GNOME-Autostart-enabled=false"}) {
        put("[Desktop Entry]\nType=Application\nName=Tolvar\nExec=tolvar\n" + mark + "\n");
        auto item = service();
        EXPECT_EQ(item.status(), LoginItemStatus::requiresApproval);
        EXPECT_EQ(LoginItem::setEnabled(item, true), std::nullopt);
        EXPECT_EQ(item.status(), LoginItemStatus::requiresApproval);
        EXPECT_EQ(LoginItem::setEnabled(item, false), std::nullopt);
        EXPECT_EQ(item.status(), LoginItemStatus::notRegistered);
    }
}

TEST_F(XdgLoginItemServiceTest, IsNotFoundWithoutAProgram) {
    QFile::setPermissions(m_program, QFile::ReadOwner);
    EXPECT_EQ(service().status(), LoginItemStatus::notFound);
    QFile::remove(m_program);
    EXPECT_EQ(service().status(), LoginItemStatus::notFound);
    EXPECT_EQ(service().registerItem(), u"There is no program at “%1”."_s.arg(m_program));
    EXPECT_FALSE(QFile::exists(m_entry));
    m_program = u"tolvar"_s;
    EXPECT_EQ(service().status(), LoginItemStatus::notFound);
}

TEST_F(XdgLoginItemServiceTest, CountsWhatStartsNothingAsNotRegisteredAndReplacesIt) {
    put("");
    EXPECT_EQ(service().status(), LoginItemStatus::notRegistered);
    EXPECT_EQ(service().registerItem(), std::nullopt);
    EXPECT_EQ(service().status(), LoginItemStatus::enabled);

    for (const auto& target : {u"/dev/null"_s, m_root.filePath(u"nowhere"_s)}) {
        QFile::remove(m_entry);
        ASSERT_TRUE(QFile::link(target, m_entry));
        EXPECT_EQ(service().status(), LoginItemStatus::notRegistered);
        EXPECT_EQ(service().registerItem(), std::nullopt);
        EXPECT_EQ(service().status(), LoginItemStatus::enabled);
        EXPECT_FALSE(QFileInfo(m_entry).isSymLink());
    }
}

TEST_F(XdgLoginItemServiceTest, WritesThroughALinkToAFileAndRemovesTheLinkAlone) {
    put("");
    const QString real = m_root.filePath(u"real.desktop"_s);
    ASSERT_TRUE(QFile::rename(m_entry, real));
    ASSERT_TRUE(QFile::link(real, m_entry));
    EXPECT_EQ(service().registerItem(), std::nullopt);
    EXPECT_TRUE(QFileInfo(m_entry).isSymLink());
    EXPECT_EQ(service().status(), LoginItemStatus::enabled);
    EXPECT_EQ(service().unregisterItem(), std::nullopt);
    EXPECT_FALSE(QFileInfo(m_entry).isSymLink());
    EXPECT_TRUE(QFile::exists(real));
}

TEST_F(XdgLoginItemServiceTest, SaysWhatIsInItsWay) {
    QDir().mkpath(m_entry);
    const auto occupied = service().registerItem();
    ASSERT_TRUE(occupied);
    EXPECT_TRUE(occupied->startsWith(u"The file “%1” could not be written: "_s.arg(m_entry)));
    const auto kept = service().unregisterItem();
    ASSERT_TRUE(kept);
    EXPECT_TRUE(kept->startsWith(u"The file “%1” could not be removed: "_s.arg(m_entry)));

    const QString config = m_root.filePath(u"config"_s);
    QDir(config).removeRecursively();
    ASSERT_TRUE(QFile(config).open(QFile::WriteOnly));
    EXPECT_EQ(service().registerItem(),
              u"The folder “%1/autostart” could not be made."_s.arg(config));
}

TEST_F(XdgLoginItemServiceTest, SaysThatItMayNotWriteOrRemove) {
    ASSERT_EQ(service().registerItem(), std::nullopt);
    test::withOwnMounts([&] {
        test::bindToItself(m_root.path());
        test::remount(m_root.path(), test::Mode::readOnly);
        EXPECT_EQ(service().status(), LoginItemStatus::enabled);
        EXPECT_TRUE(service().registerItem());
        EXPECT_TRUE(service().unregisterItem());
        EXPECT_EQ(service().status(), LoginItemStatus::enabled);
    });
}

TEST_F(XdgLoginItemServiceTest, OfThisUserStandsInTheUsersConfigurationFolder) {
    test::ChildProcess child([&] {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_root.filePath(u"config"_s)));
        EXPECT_EQ(XdgLoginItemService::ofThisUser(m_program).registerItem(), std::nullopt);
    });
    EXPECT_TRUE(child.succeeds());
    EXPECT_TRUE(QFile::exists(m_entry));
}

} // namespace
} // namespace tolvar
