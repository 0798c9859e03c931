#include "Platform/Linux/X11/WorkspaceFixture.h"

#include "Platform/Linux/Desktop/DesktopEntries.h"

#include <QDir>
#include <QFile>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

namespace tolvar::test {

using namespace Qt::StringLiterals;

const WindowLook WorkspaceFixture::chat{.className = u"Chat"_s};
const WindowLook WorkspaceFixture::editor{.className = u"Editor"_s};

WorkspaceFixture::WorkspaceFixture() {
    QDir(m_data.path()).mkpath(u"applications"_s);
    writeEntry(u"org.example.Chat"_s, u"Chatter"_s, {});
    writeEntry(u"org.example.Editor"_s, u"Writer"_s, {});
    writeEntry(u"debian-xterm"_s, u"XTerm"_s, u"XTerm"_s);
    workspace = makeWorkspace();
}

void WorkspaceFixture::SetUp() {
    ASSERT_TRUE(workspace);
    ASSERT_TRUE(TestDesktop::waitUntil([&] { return workspace->runningApplications().empty(); }));
}

void WorkspaceFixture::writeEntry(const QString& id, const QString& name, const QString& wmClass) {
    QFile file(m_data.filePath(u"applications/%1.desktop"_s.arg(id)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(u"[Desktop Entry]\nType=Application\nName=%1\nExec=some-%1\nStartupWMClass=%2\n"_s
                   .arg(name, wmClass)
                   .toUtf8());
}

std::unique_ptr<X11Workspace> WorkspaceFixture::makeWorkspace() {
    return X11Workspace::create(DesktopEntries({m_data.path()}, {}, u"C"_s), log);
}

std::optional<RunningApplication> WorkspaceFixture::named(const QString& name) const {
    for (const RunningApplication& application : workspace->runningApplications())
        if (application.localizedName == name)
            return application;
    return std::nullopt;
}

ApplicationHandle WorkspaceFixture::handleOf(const QString& name) const {
    TestDesktop::waitUntil([&] { return named(name).has_value(); });
    return named(name).value_or(RunningApplication()).handle;
}

bool WorkspaceFixture::isGone(xcb_window_t window) const {
    return TestDesktop::waitUntil([&] { return !desktop.isSeen(window); });
}

bool WorkspaceFixture::isBack(xcb_window_t window) const {
    return TestDesktop::waitUntil([&] { return desktop.isSeen(window); });
}

void WorkspaceFixture::hideInARunThatIsKilled(const QString& name) {
    int channel[2];
    ASSERT_EQ(pipe(channel), 0);
    const pid_t run = fork();
    if (run == 0) {
        const auto other = makeWorkspace();
        for (const RunningApplication& application : other->runningApplications())
            if (application.localizedName == name)
                other->hide(application.handle);
        if (write(channel[1], "!", 1) != 1)
            _exit(1);
        for (;;)
            pause();
    }
    char done = 0;
    EXPECT_EQ(read(channel[0], &done, 1), 1);
    kill(run, SIGKILL);
    waitpid(run, nullptr, 0);
    close(channel[0]);
    close(channel[1]);
}

Reports::Reports(Workspace& workspace) {
    subscription =
        workspace.observe({[this](const RunningApplication& application) {
                               all.push_back(u"launched "_s + application.localizedName);
                           },
                           [this](const RunningApplication& application) {
                               all.push_back(u"activated "_s + application.localizedName);
                           }});
}

bool Reports::contain(const QString& report) const {
    return std::find(all.begin(), all.end(), report) != all.end();
}

} // namespace tolvar::test
