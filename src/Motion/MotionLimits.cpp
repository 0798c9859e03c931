#include "Motion/MotionLimits.h"

#include <algorithm>
#include <cmath>

namespace tolvar::motion {

double usableSeconds(double seconds) {
    if (!std::isfinite(seconds) || seconds < shortest)
        return 0;
    return std::min(seconds, longest);
}

bool isUsableValue(double value) {
    return std::abs(value) <= farthest;
}

} // namespace tolvar::motion
