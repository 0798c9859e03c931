#pragma once

#include <QRectF>

namespace tolvar {

/// Where the slots of a selector stand, and the highlight that travels between them. Lengths are
/// points; an edge's index is fractional while it is on its way.
struct SlotGeometry {
    double totalWidth = 0;
    int count = 1;
    double inset = 4;
    double spacing = 4;

    double slotWidth() const;
    /// How far the highlight's leading edge stands from the selector's.
    double leadingPadding(double index) const;
    /// How far the highlight's trailing edge stands from the selector's.
    double trailingPadding(double index) const;

    /// One slot in a selector of this height, counted from the left.
    QRectF slot(int index, double height) const;
    /// The highlight between its two edges. Edges that pass each other leave it no width.
    QRectF highlight(double leadingEdge, double trailingEdge, double height) const;
};

} // namespace tolvar
