#include "BrowserHost/AppFinder.h"

#include "BrowserHost/PrivateFolder.h"

#include <sys/inotify.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace tolvar {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds shortestPause = 250ms;
constexpr std::chrono::milliseconds longestPause = 60s;
/// A connection that lasted so long was a good one.
constexpr std::chrono::milliseconds goodConnection = 5s;

constexpr std::uint32_t arrivals = IN_CREATE | IN_MOVED_TO | IN_ATTRIB;
constexpr std::uint32_t losses = IN_DELETE_SELF | IN_MOVE_SELF;

sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), std::min(path.size(), sizeof address.sun_path - 1));
    return address;
}

} // namespace

AppFinder::AppFinder(std::string folder)
    : m_folder(std::move(folder)) {}

/// The watch is there before the look, so that nothing is missed in between.
Descriptor AppFinder::connect() {
    m_retryTime.reset();
    beginWatch();
    PrivateFolder::make(m_folder);
    const Descriptor folder = PrivateFolder::open(m_folder);
    watchFor(folder);
    if (!folder || !PrivateFolder::isClosed(folder))
        return {};
    Descriptor app = connectIn(folder);
    if (app)
        m_watch.reset();
    return app;
}

void AppFinder::beginWatch() {
    m_watch = Descriptor(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (!m_watch)
        giveUpWatch();
}

/// Where the folder is not one to be trusted, the one above it is watched for a better one.
void AppFinder::watchFor(const Descriptor& folder) {
    const std::string above = m_folder.substr(0, m_folder.rfind('/') + 1);
    const std::string watched = folder ? PrivateFolder::pathIn(folder, ".") : above;
    if (m_watch && ::inotify_add_watch(m_watch.number(), watched.c_str(), arrivals | losses) < 0)
        giveUpWatch();
}

void AppFinder::giveUpWatch() {
    m_watchError = errno;
    m_watch.reset();
}

Descriptor AppFinder::connectIn(const Descriptor& folder) {
    const auto facts = PrivateFolder::privateSocket(folder, PrivateFolder::socketName);
    if (!facts || mustWait(identityOf(*facts)))
        return {};
    Descriptor app = connectTo(folder);
    if (app) {
        m_lastSocket = identityOf(*facts);
        m_connectTime = Clock::now();
    }
    return app;
}

Descriptor AppFinder::connectTo(const Descriptor& folder) {
    Descriptor app(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const auto address = addressOf(PrivateFolder::pathIn(folder, PrivateFolder::socketName));
    if (::connect(app.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return PrivateFolder::isPeerOurs(app.number()) ? std::move(app) : Descriptor();
    // Too many are waiting to be let in.
    if (errno == EAGAIN)
        m_retryTime = Clock::now() + shortestPause;
    return {};
}

AppFinder::Identity AppFinder::identityOf(const struct stat& facts) {
    return {facts.st_ino, facts.st_ctim.tv_sec, facts.st_ctim.tv_nsec};
}

bool AppFinder::mustWait(const Identity& socket) {
    if (socket != m_lastSocket || Clock::now() >= m_pauseEnd)
        return false;
    m_retryTime = m_pauseEnd;
    return true;
}

void AppFinder::noteEnd() {
    const auto now = Clock::now();
    const bool wasGood = now - m_connectTime >= goodConnection;
    m_pause = wasGood ? 0ms : std::clamp(m_pause * 2, shortestPause, longestPause);
    m_pauseEnd = now + m_pause;
}

} // namespace tolvar
