#include "Support/ChildProcess.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace tolvar::test {

namespace {

void writeFile(const char* path, const QByteArray& text) {
    QFile file(QString::fromLatin1(path));
    ASSERT_TRUE(file.open(QFile::WriteOnly | QFile::Unbuffered)) << path;
    ASSERT_EQ(file.write(text), text.size()) << path;
}

/// Root of a user namespace of its own may mount, whoever it is outside.
void becomeRootOfOwnNamespace() {
    const auto user = QByteArray::number(geteuid());
    const auto group = QByteArray::number(getegid());
    ASSERT_EQ(unshare(CLONE_NEWUSER | CLONE_NEWNS), 0)
        << "neither as root nor in a user namespace may this test mount: " << std::strerror(errno);
    writeFile("/proc/self/setgroups", "deny");
    writeFile("/proc/self/uid_map", "0 " + user + " 1");
    writeFile("/proc/self/gid_map", "0 " + group + " 1");
}

void takeOwnMounts() {
    if (unshare(CLONE_NEWNS) != 0)
        becomeRootOfOwnNamespace();
    ASSERT_EQ(mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr), 0) << std::strerror(errno);
}

} // namespace

ChildProcess::ChildProcess(const std::function<void()>& body) {
    std::fflush(nullptr);
    m_process = fork();
    if (m_process != 0)
        return;
    body();
    std::fflush(nullptr);
    _exit(testing::Test::HasFailure() ? 1 : 0);
}

ChildProcess::~ChildProcess() {
    kill();
}

void ChildProcess::kill() {
    if (m_process > 0)
        ::kill(m_process, SIGKILL);
    await();
}

bool ChildProcess::succeeds() {
    const int status = await();
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

int ChildProcess::await() {
    int status = -1;
    if (m_process > 0)
        waitpid(m_process, &status, 0);
    m_process = -1;
    return status;
}

void withOwnMounts(const std::function<void()>& body) {
    ChildProcess child([&] {
        takeOwnMounts();
        if (!testing::Test::HasFatalFailure())
            body();
    });
    EXPECT_TRUE(child.succeeds()) << "see the failures above";
}

void mountSmallDisk(const QString& folder, const char* size) {
    const QByteArray options = QByteArray("size=") + size;
    ASSERT_EQ(
        mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, options.constData()), 0)
        << std::strerror(errno);
}

void bindToItself(const QString& folder) {
    const QByteArray path = QFile::encodeName(folder);
    ASSERT_EQ(mount(path.constData(), path.constData(), nullptr, MS_BIND, nullptr), 0)
        << std::strerror(errno);
}

void remount(const QString& folder, Mode mode) {
    const unsigned long flags = MS_REMOUNT | MS_BIND | (mode == Mode::readOnly ? MS_RDONLY : 0);
    ASSERT_EQ(mount("none", QFile::encodeName(folder).constData(), nullptr, flags, nullptr), 0)
        << std::strerror(errno);
}

} // namespace tolvar::test
