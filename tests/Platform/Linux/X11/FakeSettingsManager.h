#pragma once

#include "Platform/Linux/X11/XConnection.h"

#include <QByteArray>

#include <memory>

namespace tolvar::test {

/// A settings manager (XSETTINGS protocol 0.5) on the X server of DISPLAY. What it is told to do
/// has reached the server when the function returns.
class FakeSettingsManager {
public:
    /// Does not take the place of the manager before `appear` is called.
    FakeSettingsManager();

    /// Takes the place of the manager, whoever has it, and announces itself.
    void appear();
    /// Sets the property of all settings.
    void publish(const QByteArray& settings);
    /// Ends the window that has the place.
    void leave();
    /// Says something of no concern on a window of its own, and on the root.
    void chat();

    xcb_window_t window() const { return m_window; }

private:
    void announce();

    std::unique_ptr<XConnection> m_connection;
    xcb_window_t m_window = XCB_NONE;
    xcb_window_t m_otherWindow = XCB_NONE;
};

} // namespace tolvar::test
