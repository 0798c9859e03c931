#include "BrowserHost/PlayedApp.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace tolvar::test {

namespace {

constexpr int patienceMilliseconds = 20'000;

bool isReadable(int descriptor, int milliseconds) {
    pollfd watched{descriptor, POLLIN, 0};
    return ::poll(&watched, 1, milliseconds) > 0;
}

} // namespace

PlayedApp::PlayedApp(const std::string& runtimeFolder, mode_t socketMode)
    : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const std::string path = runtimeFolder + "/tolvar/browser.sock";
    const std::string newPath = path + ".played";
    ::mkdir((runtimeFolder + "/tolvar").c_str(), 0700);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, newPath.c_str(), sizeof address.sun_path - 1);
    ::bind(m_socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
    ::chmod(newPath.c_str(), socketMode);
    ::listen(m_socket.number(), 4);
    std::rename(newPath.c_str(), path.c_str());
}

bool PlayedApp::letIn() {
    if (!isReadable(m_socket.number(), patienceMilliseconds))
        return false;
    m_host = Descriptor(::accept4(m_socket.number(), nullptr, nullptr, SOCK_CLOEXEC));
    m_reader = {};
    return true;
}

bool PlayedApp::isSought() const {
    return isReadable(m_socket.number(), 0);
}

std::optional<std::string> PlayedApp::heard() {
    while (true) {
        if (auto frame = m_reader.take())
            return frame;
        if (!isReadable(m_host.number(), patienceMilliseconds) ||
            readOnce(m_host.number(), m_reader) == ReadResult::ended)
            return std::nullopt;
    }
}

bool PlayedApp::isLeft() {
    while (isReadable(m_host.number(), patienceMilliseconds)) {
        FrameReader dropped;
        if (readOnce(m_host.number(), dropped) == ReadResult::ended)
            return true;
    }
    return false;
}

void PlayedApp::say(std::string_view content) {
    const auto length = static_cast<std::uint32_t>(content.size());
    std::string bytes(sizeof length, '\0');
    std::memcpy(bytes.data(), &length, sizeof length);
    sayBytes(bytes.append(content));
}

std::size_t PlayedApp::sayWithoutWaiting(std::string_view bytes) {
    const ssize_t count =
        ::send(m_host.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    return count < 0 ? 0 : static_cast<std::size_t>(count);
}

void PlayedApp::sayBytes(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::send(m_host.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count < 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

} // namespace tolvar::test
