#pragma once

#include <QRect>
#include <QSize>

#include <cstdint>
#include <vector>

namespace tolvar {

/// The values of a _NET_WM_STRUT_PARTIAL; a _NET_WM_STRUT has the first four of them.
inline constexpr std::uint32_t strutWords = 12;

/// What is left of a screen between the strips that windows reserve along the edges of the desktop.
/// Each of `struts` is the value of a property above, or empty. A strip that would leave less than
/// half of the screen is none of this screen's. All in device pixels.
QRect areaBetween(const std::vector<std::vector<std::uint32_t>>& struts, const QSize& desktop,
                  const QRect& screen);

} // namespace tolvar
