#include "Views/Popover/ClosingPress.h"

#include <utility>

namespace tolvar {

namespace {

/// Seconds that a button is held down in a click, and points that a hand slips meanwhile.
constexpr double longestClick = 1;
constexpr int farthestSlip = 12;

} // namespace

void ClosingPress::note(const QPoint& position, double now) {
    m_press = Press{position, now};
}

bool ClosingPress::takeClick(const QPoint& position, double now) {
    const auto press = std::exchange(m_press, std::nullopt);
    return press && now - press->time <= longestClick &&
           (position - press->position).manhattanLength() <= farthestSlip;
}

} // namespace tolvar
