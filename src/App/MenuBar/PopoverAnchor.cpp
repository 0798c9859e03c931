#include "App/MenuBar/PopoverAnchor.h"

namespace tolvar {

namespace {

/// Device pixels. A host may name the middle of its item, or the corner of a broad one.
constexpr int believableDistance = 96;

} // namespace

QRect popoverAnchor(const std::optional<QRect>& castle, const std::optional<QPoint>& claimed,
                    const QPoint& pointer) {
    if (castle)
        return *castle;
    const bool isBelieved = claimed && (*claimed - pointer).manhattanLength() <= believableDistance;
    return {isBelieved ? *claimed : pointer, QSize(1, 1)};
}

} // namespace tolvar
