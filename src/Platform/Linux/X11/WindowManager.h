#pragma once

#include "Platform/Linux/X11/WindowHider.h"

#include <memory>
#include <optional>

namespace tolvar {

/// The window manager that runs, as it presents itself (EWMH, _NET_SUPPORTING_WM_CHECK).
struct WindowManager {
    /// Lives as long as the window manager.
    WindowId checkWindow = 0;
    QString name;
    /// It knows minimised windows and keeps _NET_WM_STATE_HIDDEN.
    bool minimises = false;

    bool operator==(const WindowManager&) const = default;
};

/// Nothing when no window manager runs that follows EWMH.
std::optional<WindowManager> detectWindowManager(const XConnection& connection);

/// Waits until the window manager has done what it was asked before, by whomever, at most `limit`.
void waitForWindowManager(XConnection& connection, std::chrono::milliseconds limit);

/// The way to hide windows under this window manager; null when there is none.
std::unique_ptr<WindowHider> makeHider(const WindowManager& manager, XConnection& connection,
                                       const WindowReader& reader);

} // namespace tolvar
