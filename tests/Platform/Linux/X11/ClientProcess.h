#pragma once

#include <sys/types.h>
#include <xcb/xcb.h>

#include <vector>

namespace tolvar::test {

/// A process of its own with a connection to the X server of DISPLAY, for windows to belong to.
class ClientProcess {
public:
    ClientProcess();
    /// Kills the process; its windows go with it.
    ~ClientProcess();
    ClientProcess(const ClientProcess&) = delete;
    ClientProcess& operator=(const ClientProcess&) = delete;

    enum class Redirect { normal, override };
    /// Creates an unmapped window without properties.
    xcb_window_t createWindow(Redirect redirect = Redirect::normal);
    pid_t processIdentifier() const { return m_process; }
    /// Kills the process now.
    void quit();

private:
    pid_t m_process = 0;
    int m_channel = -1;
};

} // namespace tolvar::test
