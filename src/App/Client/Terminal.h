#pragma once

#include <QString>

namespace tolvar {

/// The standard output and error of a command, written at once and in UTF-8. SIGPIPE must be
/// ignored by the process.
class Terminal {
public:
    enum class Printed {
        all,
        /// Nobody reads the output any more; no failure.
        unread,
        /// It cannot be written, which has been complained of.
        failed,
    };

    /// Writes to the output as it is.
    Printed print(const QString& text);
    /// Writes one line to the error output, after the program's name.
    void complain(const QString& message);
};

} // namespace tolvar
