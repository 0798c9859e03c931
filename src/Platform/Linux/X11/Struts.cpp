#include "Platform/Linux/X11/Struts.h"

#include <array>

namespace tolvar {

namespace {

/// In the order in which the property names them; the start and the end of each along its edge
/// follow after all four.
enum Edge : std::size_t { left, right, top, bottom };
constexpr std::size_t edges = 4;

/// The strip along one edge of the desktop; empty when nothing is reserved there.
QRect strip(const std::vector<std::uint32_t>& strut, Edge edge, const QSize& desktop) {
    if (strut.size() < edges || strut[edge] == 0)
        return {};
    const auto depth = static_cast<int>(strut[edge]);
    const bool isUpright = edge == left || edge == right;
    int start = 0;
    int end = (isUpright ? desktop.height() : desktop.width()) - 1;
    if (strut.size() >= strutWords) {
        start = static_cast<int>(strut[edges + 2 * edge]);
        end = static_cast<int>(strut[edges + 2 * edge + 1]);
    }
    const int length = end - start + 1;
    switch (edge) {
    case left:
        return {0, start, depth, length};
    case right:
        return {desktop.width() - depth, start, depth, length};
    case top:
        return {start, 0, length, depth};
    case bottom:
        return {start, desktop.height() - depth, length, depth};
    }
    return {};
}

QRect without(const QRect& area, const QRect& taken, Edge edge) {
    QRect rest = area;
    switch (edge) {
    case left:
        rest.setLeft(taken.right() + 1);
        break;
    case right:
        rest.setRight(taken.left() - 1);
        break;
    case top:
        rest.setTop(taken.bottom() + 1);
        break;
    case bottom:
        rest.setBottom(taken.top() - 1);
        break;
    }
    return rest;
}

bool isMostOf(const QRect& part, const QRect& screen) {
    return part.isValid() && 2 * part.width() >= screen.width() &&
           2 * part.height() >= screen.height();
}

} // namespace

QRect areaBetween(const std::vector<std::vector<std::uint32_t>>& struts, const QSize& desktop,
                  const QRect& screen) {
    QRect area = screen;
    for (const auto& strut : struts)
        for (const Edge edge : {left, right, top, bottom}) {
            const QRect taken = strip(strut, edge, desktop);
            if (!taken.intersects(area))
                continue;
            if (const QRect rest = without(area, taken, edge); isMostOf(rest, screen))
                area = rest;
        }
    return area;
}

} // namespace tolvar
