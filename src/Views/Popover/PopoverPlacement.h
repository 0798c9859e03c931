#pragma once

#include <QRect>
#include <QSize>

namespace tolvar {

/// Where a popover of this size stands: centred under its anchor, or above where there is no room
/// below, `gap` away from it and never outside of `available`, the part of the screen that panels
/// leave free. An anchor within a panel at an edge counts as if it were at the edge. All in points
/// of one screen.
QRect placePopover(const QRect& anchor, const QSize& size, const QRect& available, int gap);

} // namespace tolvar
