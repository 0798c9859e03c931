#include "Views/BlockAlert/ScreenPlacement.h"

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

int roundedMiddle(int start, int length, int window) {
    return static_cast<int>(std::round(start + length / 2.0 - window / 2.0));
}

} // namespace

int screenUnder(const QPoint& point, const std::vector<QRect>& frames) {
    const auto found =
        std::ranges::find_if(frames, [&](const QRect& frame) { return frame.contains(point); });
    return found != frames.end() ? static_cast<int>(found - frames.begin()) : -1;
}

QPoint centeredOrigin(const QRect& frame, const QSize& window) {
    return {roundedMiddle(frame.x(), frame.width(), window.width()),
            roundedMiddle(frame.y(), frame.height(), window.height())};
}

} // namespace tolvar
