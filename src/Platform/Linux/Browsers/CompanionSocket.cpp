#include "Platform/Linux/Browsers/CompanionSocket.h"

#include "BrowserHost/PrivateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// What the socket is called until it is ready.
constexpr char newSocketName[] = "browser.sock.new";
/// How many may wait to be let in.
constexpr int queueLength = 16;

QString lastError() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool bindIn(const Descriptor& folder, const Descriptor& socket) {
    const std::string path = PrivateFolder::pathIn(folder, newSocketName);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), std::min(path.size(), sizeof address.sun_path - 1));
    return ::bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
           0;
}

/// The new socket takes the place of the old one, or of a link in its place, in one step.
bool publish(const Descriptor& folder, const Descriptor& socket) {
    const int place = folder.number();
    ::unlinkat(place, newSocketName, 0);
    return bindIn(folder, socket) && ::fchmodat(place, newSocketName, S_IRUSR | S_IWUSR, 0) == 0 &&
           ::listen(socket.number(), queueLength) == 0 &&
           ::renameat(place, newSocketName, place, PrivateFolder::socketName) == 0;
}

} // namespace

std::variant<CompanionSocket, QString> CompanionSocket::listen(const std::string& folderPath) {
    PrivateFolder::make(folderPath);
    Descriptor folder = PrivateFolder::open(folderPath);
    if (!folder || ::fchmod(folder.number(), S_IRWXU) != 0)
        return u"%1 cannot be used: %2"_s.arg(QString::fromStdString(folderPath), lastError());
    if (::flock(folder.number(), LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK
                   ? u"another program listens in "_s + QString::fromStdString(folderPath)
                   : u"%1 cannot be locked: %2"_s.arg(QString::fromStdString(folderPath),
                                                      lastError());
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!publish(folder, socket))
        return u"no socket in %1: %2"_s.arg(QString::fromStdString(folderPath), lastError());
    return CompanionSocket(std::move(folder), std::move(socket));
}

CompanionSocket::CompanionSocket(Descriptor folder, Descriptor socket)
    : m_folder(std::move(folder))
    , m_socket(std::move(socket)) {}

CompanionSocket::~CompanionSocket() {
    if (m_folder)
        ::unlinkat(m_folder.number(), PrivateFolder::socketName, 0);
}

Descriptor CompanionSocket::accept() const {
    return Descriptor(::accept4(m_socket.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

} // namespace tolvar
