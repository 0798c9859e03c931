#pragma once

#include "Platform/Linux/X11/TestDesktop.h"
#include "Platform/Linux/X11/X11Workspace.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

namespace tolvar::test {

/// Keeps the lines of a log.
class RecordingLog final : public SystemLog {
public:
    void error(const QString& category, const QString& message) override {
        lines.push_back(category + QStringLiteral(": ") + message);
    }
    std::vector<QString> lines;
};

/// A workspace on the desktop the test runs in. Its desktop entries are "org.example.Chat" named
/// "Chatter", "org.example.Editor" named "Writer", and xterm's.
class WorkspaceFixture : public testing::Test {
public:
    WorkspaceFixture();
    /// Waits until the windows of the test before are gone.
    void SetUp() override;

    std::unique_ptr<X11Workspace> makeWorkspace();
    std::optional<RunningApplication> named(const QString& name) const;
    /// The handle of the application of that name, waiting until it is listed.
    ApplicationHandle handleOf(const QString& name) const;
    void hide(const QString& name) { workspace->hide(handleOf(name)); }
    void unhide(const QString& name) { workspace->unhide(handleOf(name)); }
    bool isGone(xcb_window_t window) const;
    bool isBack(xcb_window_t window) const;

    /// Makes a process of its own that hides the application and is then killed.
    void hideInARunThatIsKilled(const QString& name);

    TestDesktop desktop;
    RecordingLog log;
    std::unique_ptr<X11Workspace> workspace;

    static const WindowLook chat;
    static const WindowLook editor;

private:
    void writeEntry(const QString& id, const QString& name, const QString& wmClass);
    QTemporaryDir m_data;
};

/// Collects what a workspace reports, as "launched NAME" and "activated NAME".
class Reports {
public:
    explicit Reports(Workspace& workspace);
    std::vector<QString> all;
    bool contain(const QString& report) const;
    Subscription subscription;
};

} // namespace tolvar::test
