#pragma once

#include "Platform/Linux/Desktop/DesktopEntries.h"
#include "Platform/Linux/X11/ApplicationMatcher.h"
#include "Platform/Linux/X11/Desk.h"
#include "Platform/Linux/X11/WindowManager.h"
#include "Platform/Linux/X11/WindowReader.h"

#include <map>
#include <memory>
#include <optional>
#include <set>

namespace tolvar {

/// Looks at the desktop: which windows there are, whose they are, and which are hidden.
class DeskReader {
public:
    DeskReader(XConnection& connection, DesktopEntries entries);

    /// Looks who manages the windows now. False when nobody does who can hide any.
    bool meetWindowManager();
    /// The way to hide windows and to show them again; null before `meetWindowManager`, and under a
    /// window manager that can hide none. Where nobody manages windows it can only show them.
    WindowHider* hider() const { return m_hider.get(); }
    /// See WindowManager::checkWindow; 0 for none.
    WindowId managerWindow() const { return m_manager ? m_manager->checkWindow : 0; }

    /// Everything as it stands. There must be a `hider`. Where nobody manages windows, those count
    /// that somebody has managed, and none has the focus.
    Desk look();
    /// Whether the window, as last looked at, is where hiding puts windows.
    bool isPutAway(const DeskWindow& window) const;
    /// Which of the windows are where hiding puts windows now.
    std::vector<WindowId> putAway(const std::vector<WindowId>& windows) const;
    /// Whether any window bears our mark; cheap.
    bool hasMarkedWindows() const;
    /// Our own shown windows, the topmost last.
    std::vector<WindowId> ownShownWindows();
    WindowId activeWindow() const;
    /// See WindowReader::userTimes.
    std::optional<std::uint32_t> userTime(WindowId window) const;

    /// Asks all windows afresh at the next look.
    void forgetWindows() { m_known.clear(); }
    /// Reads the desktop entries afresh at the next look.
    void forgetEntries();

private:
    std::vector<WindowId> windowList(xcb_atom_t list) const;
    std::vector<WindowId> orphans() const;
    void getToKnow(const std::vector<WindowId>& windows,
                   const std::vector<std::optional<WindowState>>& states);
    MatchedWindow matched(const WindowFacts& facts);
    const ApplicationMatcher& matcher();

    XConnection& m_connection;
    DesktopEntries m_entries;
    WindowReader m_reader;
    std::optional<WindowManager> m_manager;
    std::unique_ptr<WindowHider> m_hider;
    std::unique_ptr<ApplicationMatcher> m_matcher;
    std::map<WindowId, MatchedWindow> m_known;
    Workspaces m_workspaces;
};

} // namespace tolvar
