#include "App/Bundle.h"
#include "App/Display.h"
#include "App/TolvarApp.h"

#include <QCoreApplication>
#include <QDBusConnection>

#include <fcntl.h>
#include <unistd.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <csignal>
#include <cstdlib>
#include <memory>

namespace {

/// A standard stream that was closed would be whatever is opened next, such as the connection to
/// the bus. It stays what it was: one that cannot be read or written.
void occupyStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(descriptor, F_GETFD) < 0)
            ::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

/// A long history is read and written as one document of many megabytes. The allocator would keep
/// the memory of such a document once it has seen one freed, and more of it with each one filed.
void giveLargeMemoryBack() {
#ifdef __GLIBC__
    ::mallopt(M_MMAP_THRESHOLD, 1 << 20);
#endif
}

/// A command needs no display; the program itself shows what it can where there is one.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
    if (argc == 1 && tolvar::Display::isReachable())
        return tolvar::Display::makeApplication(argc, argv);
    return std::make_unique<QCoreApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    occupyStandardDescriptors();
    giveLargeMemoryBack();
    std::signal(SIGPIPE, SIG_IGN);
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
    tolvar::TolvarApp app(tolvar::thisBundle(), QDBusConnection::sessionBus());
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const int status = static_cast<int>(app.run(arguments));
    // A command ends so soon that the bus library's thread may still be reading: it would complain
    // of the types that are taken away under it. All that was to be written is written.
    if (!arguments.isEmpty())
        std::_Exit(status);
    return status;
}
