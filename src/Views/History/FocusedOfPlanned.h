#pragma once

#include "Extensions/Date.h"

#include <QString>

#include <optional>

namespace tolvar {

/// How much of a plan was focused on: "12 of 25 min", from a planned hour on "1h 10m of 2h".
/// Without a focused time, the plan alone: "25 min", "2h". Minutes are rounded toward zero; the
/// plan alone decides between the two forms. Empty where a number is beyond what can be shown.
QString focusedOfPlanned(std::optional<Seconds> focused, Seconds planned);

} // namespace tolvar
