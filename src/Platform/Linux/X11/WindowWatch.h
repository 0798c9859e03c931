#pragma once

#include "Platform/Linux/X11/XConnection.h"

#include <set>

namespace tolvar {

/// The windows whose changes this connection is told of. Who is not watched wakes nobody.
class WindowWatch {
public:
    explicit WindowWatch(XConnection& connection);

    /// Watches exactly these windows for changes of their properties. Returns whether some of
    /// them were not watched before, so that a change may have gone unnoticed.
    bool watchOnly(const std::set<xcb_window_t>& windows);
    /// Watches these as well.
    void watchAlso(const std::vector<xcb_window_t>& windows);
    /// Watches the root's properties, and the window manager's window for its end.
    void watchDesktop(xcb_window_t managerWindow);
    void watchNothing();

private:
    XConnection& m_connection;
    std::set<xcb_window_t> m_windows;
    xcb_window_t m_managerWindow = XCB_NONE;
};

} // namespace tolvar
