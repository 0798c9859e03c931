#pragma once

#include "Platform/Interfaces/SystemLog.h"
#include "Platform/Interfaces/Workspace.h"
#include "Platform/Linux/Desktop/DesktopEntries.h"

#include <memory>

namespace tolvar {

/// The applications on an X11 desktop, by its window manager's client list (EWMH).
///
/// An application is the set of top-level windows that share a desktop entry, or else a process;
/// its name is the entry's. Hiding is what the iconify button does, and what comes nearest where
/// there is none. What was hidden is written on the windows themselves. Our own windows, docks,
/// desktops and notifications are not listed and never touched. Once the X server is gone nothing
/// is listed any more, and hiding is not supported.
class X11Workspace final : public Workspace {
public:
    /// Connects to the X server of this session; null when there is none. Losing the server later
    /// is written to `log`, which must outlive the workspace, once.
    static std::unique_ptr<X11Workspace> create(DesktopEntries entries, SystemLog& log);
    ~X11Workspace() override;

    HidingSupport hidingSupport() const override;
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
    class Session;
    explicit X11Workspace(std::shared_ptr<Session> session);

    std::shared_ptr<Session> m_session;
};

} // namespace tolvar
