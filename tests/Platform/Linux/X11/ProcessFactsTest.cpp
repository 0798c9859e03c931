#include "Platform/Linux/X11/ProcessFacts.h"

#include "Support/Texts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

QByteArray environOf(std::initializer_list<QByteArray> entries) {
    QByteArray environ;
    for (const QByteArray& entry : entries)
        environ += entry + '\0';
    return environ;
}

TEST(ProcessFacts, NamesTheProgramOfARunningProcess) {
    const auto facts = readProcessFacts(QCoreApplication::applicationPid());
    EXPECT_EQ(facts.program, QFileInfo(QCoreApplication::applicationFilePath()).fileName());
}

TEST(ProcessFacts, IsEmptyForAProcessThatDoesNotExist) {
    EXPECT_EQ(readProcessFacts(0x7FFFFFFF), ProcessFacts());
}

TEST(ProcessFacts, ReadsTheEnvironmentOfARunningProcess) {
    QProcess process;
    process.start(u"sh"_s,
                  {u"-c"_s, u"GIO_LAUNCHED_DESKTOP_FILE=/a/applications/b.desktop "
                            "GIO_LAUNCHED_DESKTOP_FILE_PID=$$ exec sh -c 'echo; read x'"_s});
    ASSERT_TRUE(process.waitForReadyRead());
    EXPECT_EQ(readProcessFacts(process.processId()).launchedDesktopFile,
              u"/a/applications/b.desktop");
    process.kill();
    process.waitForFinished();
}

TEST(LaunchedDesktopFile, CountsForTheProcessItWasMeantFor) {
    const auto environ = environOf({"HOME=/root", "GIO_LAUNCHED_DESKTOP_FILE=/a/b.desktop",
                                    "GIO_LAUNCHED_DESKTOP_FILE_PID=42"});
    EXPECT_EQ(launchedDesktopFile(environ, 42), u"/a/b.desktop");
}

TEST(LaunchedDesktopFile, DoesNotCountForAProcessThatInheritedIt) {
    const auto environ =
        environOf({"GIO_LAUNCHED_DESKTOP_FILE=/a/b.desktop", "GIO_LAUNCHED_DESKTOP_FILE_PID=42"});
    EXPECT_EQ(launchedDesktopFile(environ, 43), QString());
    EXPECT_EQ(launchedDesktopFile(environ, 4), QString());
}

TEST(LaunchedDesktopFile, DoesNotCountWithoutAProcess) {
    EXPECT_EQ(launchedDesktopFile(environOf({"GIO_LAUNCHED_DESKTOP_FILE=/a/b.desktop"}), 42),
              QString());
    EXPECT_EQ(launchedDesktopFile({}, 42), QString());
}

} // namespace
} // namespace tolvar
