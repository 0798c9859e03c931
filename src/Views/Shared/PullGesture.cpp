#include "Views/Shared/PullGesture.h"

#include <algorithm>

namespace tolvar {

namespace {

/// Of the first points, the part that the list follows by; and how far it ever goes.
constexpr double looseness = 0.55;
constexpr double farthest = 160;

} // namespace

double PullGesture::take(double movement, double position, bool canPull) {
    const double wanted = position - m_hand - movement;
    m_hand = canPull ? std::max(0.0, -wanted) : 0;
    return std::max(0.0, wanted);
}

double PullGesture::pull() const {
    return farthest * (1 - 1 / (m_hand * looseness / farthest + 1));
}

} // namespace tolvar
