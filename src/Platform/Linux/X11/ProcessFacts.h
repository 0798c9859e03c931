#pragma once

#include <QByteArray>
#include <QString>

namespace tolvar {

/// What a process on this machine tells about the application it is.
struct ProcessFacts {
    /// The base name of the program it runs; empty when that is not known.
    QString program;
    /// The desktop entry it was started from, an absolute path; empty when not known.
    QString launchedDesktopFile;

    bool operator==(const ProcessFacts&) const = default;
};

/// Reads /proc; what may not be read stays empty.
ProcessFacts readProcessFacts(qint64 processIdentifier);

/// GIO_LAUNCHED_DESKTOP_FILE of the environment `environ` (entries that end in NUL bytes), but
/// only when GIO_LAUNCHED_DESKTOP_FILE_PID says that it was meant for this very process and not
/// for an ancestor it inherited the variables from.
QString launchedDesktopFile(const QByteArray& environ, qint64 processIdentifier);

} // namespace tolvar
