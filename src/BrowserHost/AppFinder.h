#pragma once

#include "BrowserHost/Descriptor.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

struct stat;

namespace tolvar {

/// Finds the running program's socket, and waits for it without looking again and again.
///
/// Connects only to a socket of ours in a folder of ours, both closed to others, behind which a
/// process of ours listens.
class AppFinder {
public:
    using Clock = std::chrono::steady_clock;

    /// `folder` is the socket's.
    explicit AppFinder(std::string folder);

    /// A connection, non-blocking; empty while there is no program to speak to. Then the folder is
    /// watched: try again when `watch()` can be read or `retryTime()` has come.
    Descriptor connect();
    /// Readable when something happened in the folder; -1 when nothing can be watched, which makes
    /// waiting useless.
    int watch() const { return m_watch.number(); }
    /// The error number that tells why nothing can be watched.
    int watchError() const { return m_watchError; }
    const std::string& folder() const { return m_folder; }
    /// When to try again though nothing happens; usually there is no such time.
    std::optional<Clock::time_point> retryTime() const { return m_retryTime; }

    /// Tells that the connection ended. A program that hangs up soon after each connection is asked
    /// ever more rarely, down to once a minute; one that was started anew is asked at once.
    void noteEnd();

private:
    /// Tells one socket file from the next of the same name.
    struct Identity {
        std::uint64_t file = 0;
        std::int64_t seconds = 0;
        std::int64_t nanoseconds = 0;
        bool operator==(const Identity&) const = default;
    };

    static Identity identityOf(const struct stat& facts);
    void beginWatch();
    void watchFor(const Descriptor& folder);
    void giveUpWatch();
    Descriptor connectIn(const Descriptor& folder);
    Descriptor connectTo(const Descriptor& folder);
    bool mustWait(const Identity& socket);

    std::string m_folder;
    Descriptor m_watch;
    int m_watchError = 0;
    std::optional<Clock::time_point> m_retryTime;
    Identity m_lastSocket;
    Clock::time_point m_connectTime;
    Clock::time_point m_pauseEnd;
    std::chrono::milliseconds m_pause{0};
};

} // namespace tolvar
