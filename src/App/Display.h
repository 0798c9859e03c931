#pragma once

#include <QCoreApplication>

#include <memory>

namespace tolvar::Display {

/// Whether there is an X server that takes us; also one that stands in a Wayland session
/// (Xwayland), where windows could not be placed otherwise.
bool isReachable();

/// The application for a reachable display, with the look of all that Qt draws by itself.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv);

} // namespace tolvar::Display
