#include "App/Bundle.h"
#include "App/TolvarApp.h"

#include <QCoreApplication>
#include <QDBusConnection>

#include <csignal>
#include <cstdlib>

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    tolvar::TolvarApp app(tolvar::thisBundle(), QDBusConnection::sessionBus());
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const int status = static_cast<int>(app.run(arguments));
    // A command ends so soon that the bus library's thread may still be reading: it would complain
    // of the types that are taken away under it. All that was to be written is written.
    if (!arguments.isEmpty())
        std::_Exit(status);
    return status;
}
