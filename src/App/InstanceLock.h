#pragma once

#include <QString>

namespace tolvar {

/// The lock on a folder that one process at a time can have. The kernel holds it (flock), so that
/// it is gone with the process, however that ended; the file that bears it, "instance.lock", stays.
class InstanceLock {
public:
    /// Whether a file to lock could be opened, and whether the lock is another one's.
    enum class State { held, heldElsewhere, impossible };

    /// Makes the folder for its owner alone when it is missing, and tries once to get the lock.
    explicit InstanceLock(const QString& folder);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    State state() const { return m_state; }

private:
    int m_descriptor;
    State m_state;
};

} // namespace tolvar
