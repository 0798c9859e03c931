#pragma once

#include <QString>

#include <sys/types.h>

#include <functional>

namespace tolvar::test {

/// A process forked off the test. It is killed, if it still runs, and awaited when this goes.
class ChildProcess {
public:
    /// Runs `body` in the child and ends it with status 1 if an expectation failed there.
    explicit ChildProcess(const std::function<void()>& body);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Ends it at once, wherever it is, and waits until it is gone.
    void kill();
    /// Waits for its end; whether it ended by itself without a failed expectation.
    bool succeeds();

private:
    int await();

    pid_t m_process;
};

/// Runs `body` in a child process whose mounts are its own, so that it can mount and make
/// read-only what it likes, as root or as anybody. Its failed expectations fail the test, and so
/// does a system that allows no such thing.
void withOwnMounts(const std::function<void()>& body);

/// To be used by a `body` of withOwnMounts: an empty file system of this size over a folder.
void mountSmallDisk(const QString& folder, const char* size);
/// Likewise: makes a folder a mount of its own, with what it holds.
void bindToItself(const QString& folder);
enum class Mode { readOnly, readWrite };
/// Likewise: switches a mount, also while files in it are open for reading.
void remount(const QString& folder, Mode mode);

} // namespace tolvar::test
