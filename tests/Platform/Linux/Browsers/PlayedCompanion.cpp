#include "Platform/Linux/Browsers/PlayedCompanion.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

namespace tolvar::test {

bool eventually(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(20'000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void settle() {
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
}

PlayedCompanion::PlayedCompanion(const std::string& folder)
    : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, (folder + "/browser.sock").c_str(), sizeof address.sun_path - 1);
    if (::connect(m_socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address))
        m_socket.reset();
}

PlayedCompanion::PlayedCompanion(const std::string& folder, std::string_view browser)
    : PlayedCompanion(folder) {
    say(R"({"browser":")" + std::string(browser) + R"("})");
}

void PlayedCompanion::say(std::string_view content) {
    const auto length = static_cast<std::uint32_t>(content.size());
    std::string bytes(sizeof length, '\0');
    std::memcpy(bytes.data(), &length, sizeof length);
    sayBytes(bytes.append(content));
}

void PlayedCompanion::sayBytes(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            ::send(m_socket.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (errno == EAGAIN)
            QCoreApplication::processEvents();
        else
            return;
    }
}

std::optional<std::string> PlayedCompanion::heard() {
    std::optional<std::string> frame;
    eventually([&] {
        pollfd watched{m_socket.number(), POLLIN, 0};
        frame = m_reader.take();
        if (!frame && ::poll(&watched, 1, 0) > 0)
            readOnce(m_socket.number(), m_reader);
        return frame.has_value();
    });
    return frame;
}

bool PlayedCompanion::isHungUpOn() {
    return eventually([this] {
        char byte = 0;
        const ssize_t count = ::recv(m_socket.number(), &byte, 1, MSG_DONTWAIT);
        return count == 0 || (count < 0 && errno == ECONNRESET);
    });
}

std::string pictureOf(int tab, std::string_view url) {
    return R"({"shown":[{"window":4711,"tab":)" + std::to_string(tab) + R"(,"url":")" +
           std::string(url) + R"("}]})";
}

} // namespace tolvar::test
