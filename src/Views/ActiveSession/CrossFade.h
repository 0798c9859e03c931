#pragma once

#include <algorithm>

namespace tolvar {

/// How much is seen of two things of which one takes the other's place: what leaves is gone before
/// what comes arrives.
class CrossFade {
public:
    /// `way`: 0 only the first, 1 only the second; springs may go beyond.
    explicit CrossFade(double way)
        : m_way(way) {}

    double first() const { return std::clamp(1 - 2 * m_way, 0.0, 1.0); }
    double second() const { return std::clamp(2 * m_way - 1, 0.0, 1.0); }

private:
    double m_way;
};

} // namespace tolvar
