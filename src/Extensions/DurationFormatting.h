#pragma once

#include "Extensions/Date.h"

#include <QString>

namespace tolvar {

/// Whether the whole seconds of a duration fit 64 bits; not so when it is not finite.
bool isShowable(Seconds duration);

/// A duration in hours and minutes, rounded toward zero to whole minutes: "0m", "25m", "1h",
/// "1h 30m". Negative ones stay in minutes ("-1m"). A value that is not showable is a
/// fatal error.
QString formattedCompact(Seconds duration);

enum class PadMinutes { no, yes };

/// A running clock: "4:05", padded "04:05", from an hour on "1:02:03" whatever the padding.
QString formattedClock(qint64 seconds, PadMinutes padMinutes);

} // namespace tolvar
