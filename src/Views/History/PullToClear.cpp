#include "Views/History/PullToClear.h"

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;

void PullToClear::setEnabled(bool isEnabled) {
    m_isEnabled = isEnabled;
    if (!isEnabled)
        m_pullDistance = 0;
}

void PullToClear::setOverscroll(double distance, Phase phase) {
    if (!m_isEnabled)
        return;
    const bool wasArmed = isArmed();
    const bool isHeld = phase == Phase::interacting;
    const double overscroll = std::max(0.0, distance);
    m_pullDistance = isHeld ? overscroll : std::min(m_pullDistance, overscroll);
    if (isHeld && !wasArmed && isArmed())
        m_actions.onArmed();
}

void PullToClear::release(double distance) {
    if (m_isEnabled && distance >= threshold)
        m_actions.onRelease();
}

double PullToClear::ringFraction() const {
    return std::min(m_pullDistance / threshold, 1.0);
}

QString PullToClear::text() const {
    return isArmed() ? u"Release to clear history"_s : u"Pull to clear history"_s;
}

} // namespace tolvar
