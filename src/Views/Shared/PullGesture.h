#pragma once

namespace tolvar {

/// How far a hand that scrolls has pulled a list beyond its top. Points.
class PullGesture {
public:
    /// The hand moves the content down by `movement` (up if less than 0) while it is scrolled to
    /// `position`. Returns the position to scroll to: below 0 nothing is left to scroll, and the
    /// hand pulls. Where it may not pull, it stops at 0.
    double take(double movement, double position, bool canPull);
    /// As it is seen: the further it is pulled, the less it follows.
    double pull() const;
    void release() { m_hand = 0; }

private:
    double m_hand = 0;
};

} // namespace tolvar
