#pragma once

#include <QString>

namespace tolvar {

/// The standard output and error of a command, written at once and in UTF-8. SIGPIPE must be
/// ignored by the process.
class Terminal {
public:
    /// Writes to the output as it is; false once nobody reads it any more or it cannot be written,
    /// which is told only where it is no mere hanging up.
    bool print(const QString& text);
    /// Writes one line to the error output, after the program's name.
    void complain(const QString& message);
};

} // namespace tolvar
