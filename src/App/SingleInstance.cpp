#include "App/SingleInstance.h"

#include "App/Protocol/RemoteNames.h"

#include <QDir>
#include <QLockFile>

#include <sys/stat.h>
#include <unistd.h>

#include <chrono>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// A lock that another process holds is the only reason not to have it.
std::unique_ptr<QLockFile> lockIn(const QString& folder) {
    QDir().mkpath(QFileInfo(folder).path());
    ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
    auto lock = std::make_unique<QLockFile>(folder + u"/instance.lock"_s);
    // The lock of a process that lives is never stale, however old it is.
    lock->setStaleLockTime(0);
    const bool isHeldElsewhere = !lock->tryLock() && lock->error() == QLockFile::LockFailedError;
    return isHeldElsewhere ? nullptr : std::move(lock);
}

} // namespace

std::unique_ptr<SingleInstance> SingleInstance::claim(const QDBusConnection& bus,
                                                      const QString& lockFolder) {
    if (!bus.isConnected()) {
        auto lock = lockIn(lockFolder);
        return lock ? std::unique_ptr<SingleInstance>(new SingleInstance(bus, std::move(lock)))
                    : nullptr;
    }
    if (!QDBusConnection(bus).registerService(RemoteNames::service))
        return nullptr;
    return std::unique_ptr<SingleInstance>(new SingleInstance(bus, nullptr));
}

SingleInstance::SingleInstance(const QDBusConnection& bus, std::unique_ptr<QLockFile> lock)
    : m_bus(bus)
    , m_lock(std::move(lock)) {}

SingleInstance::~SingleInstance() {
    if (!m_lock)
        m_bus.unregisterService(RemoteNames::service);
}

QString runtimeFolder() {
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!session.isEmpty())
        return session + u"/tolvar"_s;
    return QDir::tempPath() + u"/tolvar-"_s + QString::number(::getuid());
}

} // namespace tolvar
