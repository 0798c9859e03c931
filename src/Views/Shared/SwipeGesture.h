#pragma once

namespace tolvar {

/// Where a row stands that can be swiped aside, and whether it stays open when the hand lets go.
/// Offsets are points from the closed place; less than 0 is aside, towards the leading edge.
class SwipeGesture {
public:
    /// How far the row is aside while it is open, in points; 0 when there is nothing to reveal.
    double openWidth() const { return m_openWidth; }
    void setOpenWidth(double width) { m_openWidth = width; }
    bool isOpen() const { return m_isOpen; }
    /// Also ends the gesture, without a decision.
    void setOpen(bool open);

    /// The hand has moved this far in all since the gesture began.
    void dragTo(double translation);
    /// The hand has moved this much further.
    void scrollBy(double delta);
    /// The hand lets go: a flick, whose last step was more than 2 points, goes where it was flicked
    /// to; anything slower opens the row exactly when more than half is revealed. Returns whether
    /// the row is open now.
    bool settle();

    /// Where the row rests: aside by the open width while it is open.
    double base() const { return m_isOpen ? -m_openWidth : 0; }
    /// Where the hand has brought the row: to the closed side of its place it moves only a fifth of
    /// the way, beyond the open place a quarter.
    double offset() const;
    /// How much of the open width a row at `offset` reveals, 0 to 1; 0 where there is nothing.
    double revealProgress(double offset) const;

private:
    double m_openWidth = 0;
    bool m_isOpen = false;
    double m_dragOffset = 0;
    double m_lastDelta = 0;
};

} // namespace tolvar
