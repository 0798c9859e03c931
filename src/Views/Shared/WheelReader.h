#pragma once

#include "Views/Shared/ScrollSwipeTracker.h"

class QWheelEvent;

namespace tolvar {

/// Tells what a wheel event says as a step of scrolling. One reader reads all the events of a
/// window, since the end of a glide is known by what came before it.
class WheelReader {
public:
    /// What a wheel scrolls by when it is turned by one notch.
    static constexpr double pointsPerNotch = 48;

    /// `isInside` is left to the caller. Devices that tell of no phases tell of no true lengths
    /// either: their deltas are parts of notches. A wheel with Shift goes sideways.
    ScrollStep read(const QWheelEvent& event);

private:
    bool m_glides = false;
};

} // namespace tolvar
