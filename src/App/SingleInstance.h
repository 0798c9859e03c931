#pragma once

#include <QDBusConnection>
#include <QString>

#include <memory>

class QLockFile;

namespace tolvar {

/// The right to be the one running program of a session: its name on the session bus, or without a
/// bus the lock on a file. It is given back when this object is destroyed.
class SingleInstance {
public:
    /// Null when another one has it. The file lies in `lockFolder`, which is made for its owner
    /// alone; where that is impossible nobody is kept from running.
    static std::unique_ptr<SingleInstance> claim(const QDBusConnection& bus,
                                                 const QString& lockFolder);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

private:
    SingleInstance(const QDBusConnection& bus, std::unique_ptr<QLockFile> lock);

    QDBusConnection m_bus;
    std::unique_ptr<QLockFile> m_lock;
};

/// "tolvar" below XDG_RUNTIME_DIR (XDG Base Directory Specification); where that is not set, a
/// folder of this user's among the temporary files.
QString runtimeFolder();

} // namespace tolvar
