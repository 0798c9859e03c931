#include "App/Client/RunningProgram.h"

#include "App/Protocol/RemoteNames.h"
#include "ApplicationInterface.h"
#include "TolvarInterface.h"

#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>
#include <QDir>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

namespace tolvar {

namespace {

template<typename Interface>
std::unique_ptr<Interface> proxy(const QString& address, const QDBusConnection& bus) {
    auto made = std::make_unique<Interface>(address, RemoteNames::objectPath, bus);
    made->setTimeout(static_cast<int>(std::chrono::milliseconds(RunningProgram::patience).count()));
    return made;
}

/// Handles events until the watcher has seen a change that `isIt` accepts, or patience ends.
template<typename Accepts>
void waitForOwner(const QDBusServiceWatcher& watcher, Accepts isIt) {
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceOwnerChanged, &loop,
                     [&](const QString&, const QString&, const QString& owner) {
                         if (isIt(owner))
                             loop.quit();
                     });
    QTimer::singleShot(RunningProgram::patience, &loop, &QEventLoop::quit);
    loop.exec();
}

bool startDetached(const QString& executable) {
    QProcess process;
    process.setProgram(executable);
    process.setWorkingDirectory(QDir::rootPath());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

} // namespace

std::optional<QString> RunningProgram::address() const {
    if (!m_bus.isConnected())
        return std::nullopt;
    const QDBusReply<QString> owner = m_bus.interface()->serviceOwner(RemoteNames::service);
    return owner.isValid() ? std::optional(owner.value()) : std::nullopt;
}

/// A unique name never starts a program, and needs no tracking of who owns it.
std::unique_ptr<TolvarInterface> RunningProgram::control(const QString& address) const {
    return proxy<TolvarInterface>(address, m_bus);
}

std::unique_ptr<ApplicationInterface> RunningProgram::application(const QString& address) const {
    return proxy<ApplicationInterface>(address, m_bus);
}

std::optional<QString> RunningProgram::start(const QString& executable) const {
    const QDBusServiceWatcher watcher(RemoteNames::service, m_bus);
    if (!m_bus.isConnected() || !startDetached(executable))
        return std::nullopt;
    if (const auto started = address())
        return started;
    waitForOwner(watcher, [](const QString& owner) { return !owner.isEmpty(); });
    return address();
}

bool RunningProgram::waitForEnd(const QString& oldAddress) const {
    const QDBusServiceWatcher watcher(RemoteNames::service, m_bus);
    if (address() == oldAddress)
        waitForOwner(watcher, [&](const QString& owner) { return owner != oldAddress; });
    return address() != oldAddress;
}

} // namespace tolvar
