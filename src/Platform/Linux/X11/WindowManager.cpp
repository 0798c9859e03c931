#include "Platform/Linux/X11/WindowManager.h"

#include "Platform/Linux/X11/I3WorkspaceHider.h"
#include "Platform/Linux/X11/IconifyingHider.h"

#include <algorithm>

namespace tolvar {

std::optional<WindowManager> detectWindowManager(const XConnection& connection) {
    const auto& ewmh = connection.ewmh();
    const WindowId window =
        connection.read(connection.root(), ewmh._NET_SUPPORTING_WM_CHECK).word().value_or(0);
    if (window == 0)
        return std::nullopt;
    // A window manager that died left the root's property behind, but not the window.
    const auto check = connection.ask(window, ewmh._NET_SUPPORTING_WM_CHECK);
    const auto name = connection.ask(window, ewmh._NET_WM_NAME);
    const auto supported = connection.ask(connection.root(), ewmh._NET_SUPPORTED);
    const auto checkWindow = connection.take(check).value_or(XProperty()).word();
    const auto hints = connection.take(supported).value_or(XProperty()).words();
    WindowManager manager{window, connection.take(name).value_or(XProperty()).text(),
                          std::count(hints.begin(), hints.end(), ewmh._NET_WM_STATE_HIDDEN) > 0};
    return checkWindow == window ? std::optional(manager) : std::nullopt;
}

void waitForWindowManager(XConnection& connection, std::chrono::milliseconds limit) {
    // Requests are done in their order, and the one for the extents of a frame to be has an answer.
    const xcb_window_t probe = connection.createProbe();
    const auto& ewmh = connection.ewmh();
    connection.tellWindowManager(probe, ewmh._NET_REQUEST_FRAME_EXTENTS, {});
    connection.waitUntil(
        [&] { return !connection.read(probe, ewmh._NET_FRAME_EXTENTS).bytes.isEmpty(); }, limit);
    connection.destroy(probe);
}

std::unique_ptr<WindowHider> makeHider(const WindowManager& manager, XConnection& connection,
                                       const WindowReader& reader) {
    if (manager.name == u"i3") {
        I3Ipc ipc(connection.read(connection.root(), connection.atom(XAtom::i3SocketPath)).text());
        return ipc.isAvailable()
                   ? std::make_unique<I3WorkspaceHider>(connection, reader, std::move(ipc))
                   : nullptr;
    }
    // The X11 side of Wayland compositors that promises more than most of these keep.
    if (manager.name == u"wlroots wm")
        return nullptr;
    return manager.minimises ? std::make_unique<IconifyingHider>(connection, reader) : nullptr;
}

} // namespace tolvar
