#pragma once

#include "Platform/Interfaces/ArgbPicture.h"
#include "Platform/Linux/X11/XConnection.h"

#include <cstdint>
#include <vector>

namespace tolvar {

/// The pictures in the value of _NET_WM_ICON (EWMH): each is its width, its height and its pixels.
/// Those that are empty or absurdly large are left out; a value that is cut off ends with the last
/// whole one.
std::vector<ArgbPicture> windowIcons(const std::vector<std::uint32_t>& words);

/// The icon that a window brings, in all its sizes; empty when it brings none.
std::vector<ArgbPicture> readWindowIcon(const XConnection& connection, xcb_window_t window);

} // namespace tolvar
