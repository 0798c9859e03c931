#include "Views/Shared/SwipeGesture.h"

#include <algorithm>
#include <utility>

namespace tolvar {

namespace {

/// Of a movement that leads nowhere, the part that the row follows.
constexpr double closedResistance = 0.2;
constexpr double openResistance = 0.25;
/// A last step of more than this many points is a flick.
constexpr double flick = 2;
/// The part of the open width beyond which a row that is let go of opens.
constexpr double enough = 0.5;

} // namespace

void SwipeGesture::setOpen(bool open) {
    m_isOpen = open && m_openWidth > 0;
    m_dragOffset = m_lastDelta = 0;
}

void SwipeGesture::dragTo(double translation) {
    m_lastDelta = translation - m_dragOffset;
    m_dragOffset = translation;
}

void SwipeGesture::scrollBy(double delta) {
    dragTo(m_dragOffset + delta);
}

bool SwipeGesture::settle() {
    const bool isFlick = m_lastDelta < -flick || m_lastDelta > flick;
    const bool isRevealed = base() + m_dragOffset < -m_openWidth * enough;
    setOpen(isFlick ? m_lastDelta < 0 : isRevealed);
    return m_isOpen;
}

double SwipeGesture::offset() const {
    const double moved = base() + m_dragOffset;
    if (moved > 0)
        return moved * closedResistance;
    if (moved < -m_openWidth)
        return (moved + m_openWidth) * openResistance - m_openWidth;
    return moved;
}

double SwipeGesture::revealProgress(double offset) const {
    if (m_openWidth <= 0 || offset >= 0)
        return 0;
    return std::min(1.0, -offset / m_openWidth);
}

} // namespace tolvar
