#pragma once

#include <QPoint>
#include <QRect>

#include <optional>

namespace tolvar {

/// What the popover stands beside, in device pixels of the root window.
///
/// `castle` is the item's anchor, where it is known. Otherwise the click decides: `claimed` is
/// where the host says it was, which counts only near `pointer`, for there are hosts that name the
/// panel's corner or another screen; else it was under the pointer.
QRect popoverAnchor(const std::optional<QRect>& castle, const std::optional<QPoint>& claimed,
                    const QPoint& pointer);

} // namespace tolvar
