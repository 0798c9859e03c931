#include "Platform/Linux/X11/WindowIcon.h"

#include <cstddef>

namespace tolvar {

namespace {

/// No icon has longer sides; what claims to is no icon.
constexpr std::uint32_t longestSide = 1024;
/// Enough for the customary sizes up to 512 together.
constexpr std::uint32_t maximumIconWords = 1 << 19;

} // namespace

std::vector<ArgbPicture> windowIcons(const std::vector<std::uint32_t>& words) {
    std::vector<ArgbPicture> icons;
    std::size_t at = 0;
    while (words.size() - at > 2) {
        const std::size_t width = words[at];
        const std::size_t height = words[at + 1];
        at += 2;
        if (width > longestSide || height > longestSide || width * height > words.size() - at)
            break;
        const auto first = words.begin() + static_cast<std::ptrdiff_t>(at);
        const auto count = static_cast<std::ptrdiff_t>(width * height);
        if (count > 0)
            icons.push_back(
                {static_cast<int>(width), static_cast<int>(height), {first, first + count}});
        at += width * height;
    }
    return icons;
}

std::vector<ArgbPicture> readWindowIcon(const XConnection& connection, xcb_window_t window) {
    return windowIcons(
        connection.read(window, connection.ewmh()._NET_WM_ICON, maximumIconWords).words());
}

} // namespace tolvar
