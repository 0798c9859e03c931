#pragma once

#include "Platform/Linux/X11/WindowFacts.h"
#include "Platform/Linux/X11/XConnection.h"

#include <optional>
#include <vector>

namespace tolvar {

/// Reads what is known of windows, of any number of them at the cost of about one answer's wait.
class WindowReader {
public:
    explicit WindowReader(const XConnection& connection);

    /// In the order of `windows`. A window that is gone reads as one without properties.
    std::vector<WindowFacts> facts(const std::vector<WindowId>& windows) const;
    /// In the order of `windows`; nothing for a window that is gone.
    std::vector<std::optional<WindowState>> states(const std::vector<WindowId>& windows) const;
    /// When the user last did something in each of `windows`, in the server's milliseconds; nothing
    /// where that is not told (_NET_WM_USER_TIME).
    std::vector<std::optional<std::uint32_t>> userTimes(const std::vector<WindowId>& windows) const;

private:
    template<std::size_t N>
    using Cookies = std::array<xcb_get_property_cookie_t, N>;
    template<std::size_t N>
    std::vector<Cookies<N>> askAll(const std::vector<WindowId>& windows,
                                   const std::array<xcb_atom_t, N>& properties) const;
    template<std::size_t N>
    std::optional<std::array<XProperty, N>> takeAll(const Cookies<N>& cookies) const;
    WindowKind kind(const XProperty& types) const;
    qint64 processBehind(qint64 local, const XProperty& claimed, const XProperty& machine) const;

    const XConnection& m_connection;
    QString m_hostName;
    std::vector<xcb_atom_t> m_furnitureTypes;
    std::vector<xcb_atom_t> m_applicationTypes;
};

} // namespace tolvar
