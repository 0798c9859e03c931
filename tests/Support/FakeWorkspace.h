#pragma once

#include "Platform/Interfaces/Workspace.h"
#include "Support/Journal.h"

#include <map>
#include <memory>

namespace tolvar::test {

/// A desktop of applications with windows, played by the test: it launches, activates, hides and
/// ends them as a user would, and the program under test hides and shows them.
///
/// Hiding an application leaves the focus where it is, as on desktops that do it a moment later.
/// A test that leaves windows hidden by the program fails, unless it expects that. Journal lines:
/// "watch applications", "unwatch applications", "hide NAME", "unhide NAME", "activate self".
class FakeWorkspace final : public Workspace {
public:
    struct Launch {
        QString bundleIdentifier = {};
        std::optional<qint64> processIdentifier = {}; ///< absent for a fresh one
        int windows = 1;
    };

    explicit FakeWorkspace(Journal& journal)
        : m_journal(journal) {}
    ~FakeWorkspace() override;

    /// An application starts and shows its windows, without taking the focus.
    ApplicationHandle launch(const QString& name) { return launch(name, {}); }
    ApplicationHandle launch(const QString& name, const Launch& details);
    /// The user brings an application forward: its windows are shown and it takes the focus.
    void activate(const ApplicationHandle& handle);
    /// As `activate`, but no notification tells of it.
    void activateUnnoticed(const ApplicationHandle& handle);
    /// The application opens one more window.
    void openWindow(const ApplicationHandle& handle);
    void hideByUser(const ApplicationHandle& handle);
    void terminate(const ApplicationHandle& handle);

    int shownWindows(const ApplicationHandle& handle) const;
    bool isHidden(const ApplicationHandle& handle) const { return shownWindows(handle) == 0; }
    /// Whether the program under test keeps a window of it hidden.
    bool isHiddenByProgram(const ApplicationHandle& handle) const;
    /// Whether the program's own windows have the focus.
    bool isSelfActive() const { return m_focus == Focus::self; }
    bool isWatched() const { return !m_observers->empty(); }

    /// Tells of each unhidden window as an activation while it is shown, as some desktops do.
    void reportUnhidingAsActivation() { m_reportsUnhiding = true; }
    /// What the application's windows bring as its icon; nothing at first.
    void setIcon(const ApplicationHandle& handle, const std::vector<ArgbPicture>& icon) {
        running(handle).icon = icon;
    }
    /// Whether windows can be hidden here; they can at first.
    void setHidingSupport(HidingSupport support) { m_hidingSupport = support; }
    /// The end of this test finds windows hidden by the program, and that is right.
    void expectHiddenAtEnd() { m_expectsHiddenAtEnd = true; }
    /// The program is killed: from now on nothing it asks for reaches the desktop.
    void killProgram() { m_programIsDead = true; }
    /// A fresh run of the program begins: what the killed one hid is still hidden and counts as an
    /// earlier run's. The killed one's objects are gone by now.
    void restartProgram();

    HidingSupport hidingSupport() const override { return m_hidingSupport; }
    std::vector<RunningApplication> runningApplications() const override;
    std::optional<RunningApplication> frontmostApplication() const override;
    std::optional<RunningApplication> application(const ApplicationHandle& handle) const override;
    std::vector<ArgbPicture> icon(const ApplicationHandle& handle) const override;
    void hide(const ApplicationHandle& handle) override;
    void unhide(const ApplicationHandle& handle) override;
    void activateSelf() override;
    std::vector<ApplicationHandle> hiddenByEarlierRun() const override;
    Subscription observe(Observer observer) override;

private:
    enum class Focus { application, self };
    enum class Window { shown, hiddenByUser, hiddenByProgram };
    struct Application {
        QString name;
        QString bundleIdentifier;
        qint64 processIdentifier = 0;
        std::vector<Window> windows;
        bool isHiddenByEarlierRun = false;
        std::vector<ArgbPicture> icon = {};
    };
    using Observers = std::map<int, Observer>;

    /// The test speaks only of applications that run.
    Application& running(const ApplicationHandle& handle) { return m_applications.at(handle); }
    RunningApplication describe(const ApplicationHandle& handle, const Application& app) const;
    void notify(std::function<void(const RunningApplication&)> Observer::*event,
                const ApplicationHandle& handle);

    Journal& m_journal;
    std::map<ApplicationHandle, Application> m_applications;
    Focus m_focus = Focus::self;
    ApplicationHandle m_frontmost;
    /// Outlives the workspace while subscriptions to it are held.
    std::shared_ptr<Observers> m_observers = std::make_shared<Observers>();
    int m_nextId = 1;
    HidingSupport m_hidingSupport = HidingSupport::full;
    bool m_reportsUnhiding = false;
    bool m_expectsHiddenAtEnd = false;
    bool m_programIsDead = false;
};

} // namespace tolvar::test
