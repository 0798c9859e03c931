#include "App/Client/RunningProgram.h"

#include "App/Protocol/RemoteNames.h"
#include "ApplicationInterface.h"
#include "TolvarInterface.h"

#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>
#include <QDir>
#include <QEventLoop>
#include <QProcess>
#include <QSocketNotifier>
#include <QTimer>

#include <sys/syscall.h>
#include <unistd.h>

namespace tolvar {

namespace {

template<typename Interface>
std::unique_ptr<Interface> proxy(const QString& address, const QDBusConnection& bus) {
    auto made = std::make_unique<Interface>(address, RemoteNames::objectPath, bus);
    made->setTimeout(
        static_cast<int>(std::chrono::milliseconds(RunningProgram::answerPatience).count()));
    return made;
}

/// Handles events until the name changes hands, the loop is told to quit, or patience ends.
void waitForOwner(const QDBusServiceWatcher& watcher, QEventLoop& loop) {
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceOwnerChanged, &loop, &QEventLoop::quit);
    QTimer::singleShot(RunningProgram::patience, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Tells when a process ends that need not be a child of this one.
class ProcessWatch {
public:
    explicit ProcessWatch(qint64 process)
        : m_descriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0))) {}
    ~ProcessWatch() {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    ProcessWatch(const ProcessWatch&) = delete;
    ProcessWatch& operator=(const ProcessWatch&) = delete;

    /// Quits the loop when the process ends, or at once when it has ended already.
    void quitAtEnd(QEventLoop& loop) const {
        if (m_descriptor < 0) {
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
            return;
        }
        auto* end = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, &loop);
        QObject::connect(end, &QSocketNotifier::activated, &loop, &QEventLoop::quit);
    }

private:
    int m_descriptor;
};

/// The process's id, or nothing when it could not be started.
std::optional<qint64> startDetached(const QString& executable) {
    QProcess process;
    process.setProgram(executable);
    process.setWorkingDirectory(QDir::rootPath());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    qint64 id = 0;
    return process.startDetached(&id) ? std::optional(id) : std::nullopt;
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
    const auto process = m_bus.isConnected() ? startDetached(executable) : std::nullopt;
    if (!process)
        return std::nullopt;
    const ProcessWatch processWatch(*process);
    if (!address()) {
        QEventLoop loop;
        processWatch.quitAtEnd(loop);
        waitForOwner(watcher, loop);
    }
    return address();
}

bool RunningProgram::waitForEnd(const QString& oldAddress) const {
    const QDBusServiceWatcher watcher(RemoteNames::service, m_bus);
    if (address() == oldAddress) {
        QEventLoop loop;
        waitForOwner(watcher, loop);
    }
    return address() != oldAddress;
}

} // namespace tolvar
