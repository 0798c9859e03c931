#pragma once

#include "Platform/Linux/X11/Desk.h"
#include "Platform/Linux/X11/WindowReader.h"
#include "Platform/Linux/X11/XConnection.h"

#include <chrono>
#include <functional>
#include <vector>

namespace tolvar {

/// The workspaces of a window manager at one moment.
struct Workspaces {
    /// _NET_DESKTOP_NAMES: by index.
    std::vector<QString> names;
    /// _NET_CURRENT_DESKTOP: the index of the one with the focus.
    std::optional<std::uint32_t> current;

    bool operator==(const Workspaces&) const = default;
};

/// Reads the workspaces from the root window.
Workspaces readWorkspaces(const XConnection& connection);

/// How windows are hidden and shown again under one kind of window manager.
///
/// The events that tell of changes of the windows' properties must be selected on the windows
/// given to `hide` and `show`; these wait for them.
class WindowHider {
public:
    WindowHider(XConnection& connection, const WindowReader& reader);
    virtual ~WindowHider() = default;
    WindowHider(const WindowHider&) = delete;
    WindowHider& operator=(const WindowHider&) = delete;

    /// Whether a window in this state is out of view by its user's or our will.
    virtual bool isHidden(const WindowState& state, const Workspaces& workspaces) const = 0;
    /// Whether a window in this state is where hiding puts windows, even if that is in view.
    virtual bool isPutAway(const WindowState& state, const Workspaces& workspaces) const = 0;

    /// Whether nobody can see a window in this state, whatever the reason.
    virtual bool isOutOfView(const WindowState& state, const Workspaces& workspaces) const = 0;

    /// Marks the shown windows `windows` as hidden by `run` and hides them. Returns once they are
    /// out of view, at most `patience` later, those that are not hidden yet. Of a window that is
    /// out of view already not every window manager takes note; it is to be hidden again when it
    /// comes into view.
    std::vector<WindowId> hide(const std::vector<DeskWindow>& windows, const QString& run);
    /// Shows windows that were put away, and gives the focus back to the window that has it now.
    /// Returns once that is done, after a few times `patience` at most. The marks stay.
    virtual void show(const std::vector<DeskWindow>& windows) = 0;

    /// How long a window manager is given to do what it was asked.
    static constexpr std::chrono::milliseconds patience{80};

protected:
    /// Marks the windows, each before it asks for it to be hidden.
    virtual void markAndHide(const std::vector<DeskWindow>& windows, const QString& run) = 0;

    XConnection& connection() const { return m_connection; }
    void mark(WindowId window, const HiddenMark& mark);
    /// Waits until `isFine` holds for all these windows, gone ones left out; returns those that
    /// are not fine after `patience`.
    std::vector<WindowId> waitFor(std::vector<WindowId> windows,
                                  const std::function<bool(const WindowState&)>& isFine) const;
    /// Waits until the windows are not put away any more; returns those that still are.
    std::vector<WindowId> waitUntilShown(const std::vector<DeskWindow>& windows) const;
    WindowId activeWindow() const;
    std::vector<std::optional<WindowState>> statesOf(const std::vector<WindowId>& windows) const;

private:
    void addUserTimes(const std::vector<DeskWindow>& windows);

    XConnection& m_connection;
    const WindowReader& m_reader;
};

std::vector<WindowId> idsOf(const std::vector<DeskWindow>& windows);

} // namespace tolvar
