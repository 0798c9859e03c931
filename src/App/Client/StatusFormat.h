#pragma once

#include "App/Client/Command.h"
#include "App/Protocol/StatusReport.h"

#include <QString>

namespace tolvar {

/// The report as one line, without its end:
/// - text: a sentence for people;
/// - json: an object, with only "status" unless a session runs;
/// - waybar: the object that a custom module of return type "json" reads, its texts escaped for
///   Pango;
/// - polybar: the clock and the goal, empty when there is nothing to show.
QString formatStatus(const StatusReport& report, Command::Status::Format format);

/// The remaining time as a running clock, rounded up to whole seconds: "24:59", "0:00" at the end.
/// A dash where the number means no length of time.
QString remainingClock(const StatusReport& report);

} // namespace tolvar
