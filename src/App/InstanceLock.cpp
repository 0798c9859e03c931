#include "App/InstanceLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tolvar {

namespace {

int openLockFile(const QString& folder) {
    QDir().mkpath(QFileInfo(folder).path());
    ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/instance.lock"));
    return ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
}

InstanceLock::State lock(int descriptor) {
    using State = InstanceLock::State;
    if (descriptor < 0)
        return State::impossible;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return State::held;
    return errno == EWOULDBLOCK ? State::heldElsewhere : State::impossible;
}

} // namespace

InstanceLock::InstanceLock(const QString& folder)
    : m_descriptor(openLockFile(folder))
    , m_state(lock(m_descriptor)) {}

InstanceLock::~InstanceLock() {
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

} // namespace tolvar
