#include "Views/Popover/PopoverPlacement.h"

#include <algorithm>

namespace tolvar {

namespace {

/// The position nearest to `wanted` at which `length` lies within the range; its start when it is
/// longer.
int within(int wanted, int length, int start, int end) {
    return std::max(start, std::min(wanted, end - length));
}

} // namespace

QRect placePopover(const QRect& anchor, const QSize& size, const QRect& available, int gap) {
    const int roomBelow = available.bottom() - anchor.bottom();
    const int roomAbove = anchor.top() - available.top();
    const bool fitsBelow = roomBelow >= size.height() + gap;
    const bool isBelow = fitsBelow || roomBelow >= roomAbove;
    const int y = isBelow ? anchor.bottom() + 1 + gap : anchor.top() - gap - size.height();
    const int x = anchor.left() + (anchor.width() - size.width()) / 2;
    return {{within(x, size.width(), available.left() + gap, available.right() + 1 - gap),
             within(y, size.height(), available.top() + gap, available.bottom() + 1 - gap)},
            size};
}

} // namespace tolvar
