#pragma once

#include "App/Client/Terminal.h"

namespace tolvar {

/// What a command tells the shell.
enum class ExitStatus {
    done = 0,
    /// It does not apply now, such as pausing without a session; or the output cannot be written.
    notApplicable = 1,
    /// The command line is wrong, or names what does not exist.
    wrongUsage = 2,
    /// Tolvar does not run or does not answer.
    unreachable = 3,
};

/// Output that nobody reads is no failure.
constexpr ExitStatus exitStatusOf(Terminal::Printed printed) {
    return printed == Terminal::Printed::failed ? ExitStatus::notApplicable : ExitStatus::done;
}

} // namespace tolvar
