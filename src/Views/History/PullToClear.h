#pragma once

#include <QString>

#include <functional>
#include <utility>

namespace tolvar {

/// Pulling a list down past its top, far enough, asks for it to be cleared. What the pull is and
/// says; nothing of how it looks. Distances are points.
class PullToClear {
public:
    /// Whether a hand is at the list, or it goes by itself.
    enum class Phase { interacting, other };

    struct Actions {
        /// The pull has just gone far enough, under the hand.
        std::function<void()> onArmed;
        /// The hand let go of a pull that had gone far enough.
        std::function<void()> onRelease;
    };

    static constexpr double threshold = 18;
    /// Of what shows the pull.
    static constexpr double indicatorHeight = 34;

    explicit PullToClear(Actions actions)
        : m_actions(std::move(actions)) {}

    /// Disabled, it shows and does nothing.
    void setEnabled(bool isEnabled);
    /// The list stands this far past its top. Where it goes there without a hand it is no pull;
    /// after a release the pull goes back with the list.
    void setOverscroll(double distance, Phase phase);
    /// The hand lets go of the list at this distance past its top.
    void release(double distance);

    double pullDistance() const { return m_pullDistance; }
    bool isArmed() const { return m_pullDistance >= threshold; }
    /// How much of the ring is filled, 0 to 1.
    double ringFraction() const;
    QString text() const;

private:
    Actions m_actions;
    bool m_isEnabled = true;
    double m_pullDistance = 0;
};

} // namespace tolvar
