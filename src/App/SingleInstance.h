#pragma once

#include "App/InstanceLock.h"

#include <QDBusConnection>
#include <QString>

#include <memory>
#include <variant>

namespace tolvar {

/// The right to be the one running program: the lock beside the preferences, because two would
/// overwrite each other's history, and where there is a session bus the name on it. Both are given
/// back when this object is destroyed.
class SingleInstance {
public:
    enum class Obstacle {
        /// Another one can be reached by its name on this bus.
        runsOnThisBus,
        /// Another one uses the same folder from another session, or there is no bus here.
        runsElsewhere,
    };
    using Claim = std::variant<std::unique_ptr<SingleInstance>, Obstacle>;

    /// `dataFolder` holds the preferences; where nothing can be locked in it, the name alone
    /// counts. One that is just coming or going is waited for, up to two seconds.
    static Claim claim(const QDBusConnection& bus, const QString& dataFolder);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

private:
    SingleInstance(const QDBusConnection& bus, std::unique_ptr<InstanceLock> lock);

    QDBusConnection m_bus;
    std::unique_ptr<InstanceLock> m_lock;
};

} // namespace tolvar
