#pragma once

#include "Platform/Linux/X11/XConnection.h"

#include <QByteArray>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace tolvar {

/// Follows the desktop's settings (XSETTINGS protocol 0.5) from one settings manager to the next.
///
/// It sleeps until the manager comes, goes or changes something, or the screen changes its size.
/// What was last said stands while there is no manager, and once the server is gone.
class XSettingsWatch {
public:
    /// Reads the settings before it returns. `changed` is called when they have been read anew,
    /// in the course of the event loop; it does not destroy this object.
    XSettingsWatch(std::unique_ptr<XConnection> connection, std::function<void()> changed);

    /// The value of the property _XSETTINGS_SETTINGS, to be read by `xSettingsText` and
    /// `xSettingsNumber`; empty while there has been no manager.
    const QByteArray& settings() const { return m_settings; }

private:
    /// Finds the manager that is there now, watches it, and reads what it says.
    void meetManager();
    void readEvents();
    void readEventsSoon();
    /// Returns whether the settings are to be read anew because of the event.
    bool takeNews(const xcb_generic_event_t& event);

    std::unique_ptr<XConnection> m_connection;
    std::function<void()> m_changed;
    QSocketNotifier m_notifier;
    xcb_window_t m_manager = XCB_NONE;
    QByteArray m_settings;
};

} // namespace tolvar
