#include "Platform/Linux/DBus/PortalAccessibilitySettings.h"

#include <QCoreApplication>

#include <cstdio>

/// Prints "reduced" or "full" after each change on the bus of the given address; a program that
/// does nothing else with D-Bus.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    tolvar::PortalAccessibilitySettings settings(
        QDBusConnection::connectToBus(QString::fromLocal8Bit(argv[1]), QStringLiteral("bus")));
    const auto subscription = settings.observe([&] {
        std::puts(settings.reducesMotion() ? "reduced" : "full");
        std::fflush(stdout);
    });
    return QCoreApplication::exec();
}
