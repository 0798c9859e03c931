#include "App/Client/Terminal.h"

#include "App/Client/TextTable.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace tolvar {

namespace {

/// The error number, 0 when all was written.
int writeAll(int descriptor, const QByteArray& bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written =
            ::write(descriptor, bytes.data() + done, static_cast<size_t>(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            return errno;
        done += std::max<ssize_t>(written, 0);
    }
    return 0;
}

} // namespace

Terminal::Printed Terminal::print(const QString& text) {
    const int error = writeAll(STDOUT_FILENO, text.toUtf8());
    if (error == 0)
        return Printed::all;
    if (error == EPIPE)
        return Printed::unread;
    complain(QStringLiteral("cannot write: ") + QString::fromLocal8Bit(std::strerror(error)));
    return Printed::failed;
}

/// Where complaining fails too, nobody is left to tell.
void Terminal::complain(const QString& message) {
    const QString line = QStringLiteral("tolvar: ") + singleLine(message) + u'\n';
    static_cast<void>(writeAll(STDERR_FILENO, line.toUtf8()));
}

} // namespace tolvar
