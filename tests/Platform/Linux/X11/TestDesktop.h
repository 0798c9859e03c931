#pragma once

#include "Platform/Linux/X11/ClientProcess.h"
#include "Platform/Linux/X11/XConnection.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace tolvar::test {

/// How a test window presents itself.
struct WindowLook {
    QString className = QStringLiteral("Chat");
    std::optional<std::uint32_t> claimedProcess = std::nullopt;
    QString machine = {};
    xcb_window_t transientFor = XCB_NONE;
    /// The atom's name; empty for none.
    QByteArray type = {};
    std::optional<std::uint32_t> userTime = std::nullopt;
    /// It wants the keyboard (ICCCM 4.1.2.4).
    bool wantsFocus = true;
};

/// The desktop as its user sees and handles it: the other side of what a workspace is told.
class TestDesktop {
public:
    TestDesktop();

    /// The window manager that runs: "openbox", "i3", ...
    static QString windowManager();
    static bool isI3() { return windowManager() == QStringLiteral("i3"); }

    /// Runs the event loop until `holds`; false when it does not within `limit`.
    static bool waitUntil(const std::function<bool()>& holds,
                          std::chrono::milliseconds limit = std::chrono::seconds(5));
    /// Runs the event loop for `time`; false as soon as `holds` fails.
    static bool staysTrue(const std::function<bool()>& holds,
                          std::chrono::milliseconds time = std::chrono::milliseconds(200));

    /// Opens a window of `client` and waits until it is seen.
    xcb_window_t open(ClientProcess& client, const WindowLook& look = {});
    /// Dresses a window, and maps it without waiting.
    void present(xcb_window_t window, const WindowLook& look);
    void map(xcb_window_t window);
    /// Opens a window and waits until it has the focus.
    xcb_window_t openActive(ClientProcess& client, const WindowLook& look = {});

    bool isSeen(xcb_window_t window) const;
    bool isMinimised(xcb_window_t window) const;
    bool isManaged(xcb_window_t window) const;
    bool isMarked(xcb_window_t window) const;
    xcb_window_t active() const;
    std::uint32_t currentWorkspace() const;
    std::optional<std::uint32_t> workspaceOf(xcb_window_t window) const;
    QString workspaceNameOf(xcb_window_t window) const;

    /// What a user does with a pager or taskbar; each waits until it is done.
    void activate(xcb_window_t window);
    void minimise(xcb_window_t window);
    void goToWorkspace(std::uint32_t index);
    void moveToWorkspace(xcb_window_t window, std::uint32_t index);
    void requestMinimise(xcb_window_t window);
    void requestActivate(xcb_window_t window);

    void setUserTime(xcb_window_t window, std::uint32_t time);
    void setTitle(xcb_window_t window, const QByteArray& title);
    void setWorkspaceCount(std::uint32_t count);
    void sync() const;

    XConnection& connection() const { return *m_connection; }

private:
    void tell(xcb_window_t window, xcb_atom_t type, const std::array<std::uint32_t, 5>& data);
    void setWords(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                  const std::vector<std::uint32_t>& words);
    void setText(xcb_window_t window, xcb_atom_t property, const QByteArray& text);
    xcb_atom_t atom(const QByteArray& name) const;

    std::unique_ptr<XConnection> m_connection;
};

} // namespace tolvar::test
