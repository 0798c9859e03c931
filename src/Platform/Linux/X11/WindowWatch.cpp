#include "Platform/Linux/X11/WindowWatch.h"

namespace tolvar {

WindowWatch::WindowWatch(XConnection& connection)
    : m_connection(connection) {}

bool WindowWatch::watchOnly(const std::set<xcb_window_t>& windows) {
    bool isAnyNew = false;
    for (const xcb_window_t window : m_windows)
        if (!windows.contains(window))
            m_connection.selectEvents(window, XCB_EVENT_MASK_NO_EVENT);
    for (const xcb_window_t window : windows)
        if (!m_windows.contains(window)) {
            m_connection.selectEvents(window, XCB_EVENT_MASK_PROPERTY_CHANGE);
            isAnyNew = true;
        }
    m_windows = windows;
    return isAnyNew;
}

void WindowWatch::watchAlso(const std::vector<xcb_window_t>& windows) {
    std::set<xcb_window_t> all = m_windows;
    all.insert(windows.begin(), windows.end());
    watchOnly(all);
}

void WindowWatch::watchDesktop(xcb_window_t managerWindow) {
    m_connection.selectEvents(m_connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    if (managerWindow != XCB_NONE)
        m_connection.selectEvents(managerWindow, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    m_managerWindow = managerWindow;
}

void WindowWatch::watchNothing() {
    watchOnly({});
    m_connection.selectEvents(m_connection.root(), XCB_EVENT_MASK_NO_EVENT);
    if (m_managerWindow != XCB_NONE)
        m_connection.selectEvents(m_managerWindow, XCB_EVENT_MASK_NO_EVENT);
    m_managerWindow = XCB_NONE;
}

} // namespace tolvar
