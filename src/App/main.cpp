#include "App/Bundle.h"
#include "App/TolvarApp.h"

#include <QCoreApplication>
#include <QDBusConnection>

#include <csignal>

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    tolvar::TolvarApp app(tolvar::thisBundle(), QDBusConnection::sessionBus());
    return static_cast<int>(app.run(QCoreApplication::arguments().mid(1)));
}
