#include "Views/FocusWindow/SlotGeometry.h"

#include <algorithm>

namespace tolvar {

double SlotGeometry::slotWidth() const {
    return (totalWidth - 2 * inset - spacing * (count - 1)) / count;
}

double SlotGeometry::leadingPadding(double index) const {
    return std::max(inset, inset + index * (slotWidth() + spacing));
}

double SlotGeometry::trailingPadding(double index) const {
    return std::max(inset, totalWidth - (slotWidth() + inset + index * (slotWidth() + spacing)));
}

QRectF SlotGeometry::slot(int index, double height) const {
    return {inset + index * (slotWidth() + spacing), inset, slotWidth(), height - 2 * inset};
}

QRectF SlotGeometry::highlight(double leadingEdge, double trailingEdge, double height) const {
    const double left = leadingPadding(leadingEdge);
    const double right = totalWidth - trailingPadding(trailingEdge);
    return {left, inset, std::max(right - left, 0.0), height - 2 * inset};
}

} // namespace tolvar
