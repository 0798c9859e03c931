#pragma once

#include "Views/Shared/ControlContext.h"

class QWidget;

namespace tolvar::gallery {

/// The screen of a running session: at its start, half way, and in its last seconds.
QWidget* sessionPage(const ControlContext& context);
/// While it is paused, with no pauses left, and with a clock that shows hours.
QWidget* pausePage(const ControlContext& context);
/// With goals that are long, that have no spaces, and that run from right to left.
QWidget* goalsPage(const ControlContext& context);

} // namespace tolvar::gallery
