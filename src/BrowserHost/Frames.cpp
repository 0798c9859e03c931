#include "BrowserHost/Frames.h"

#include <sys/socket.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

namespace tolvar {

namespace {

using Length = std::uint32_t;

constexpr std::size_t pieceSize = std::size_t{64} << 10;

std::string framed(std::string_view content) {
    const auto length = static_cast<Length>(content.size());
    std::string frame(sizeof length, '\0');
    std::memcpy(frame.data(), &length, sizeof length);
    return frame.append(content);
}

/// A large frame is rare; its memory is not kept for the small ones.
void release(std::string& bytes) {
    bytes.clear();
    if (bytes.capacity() > pieceSize)
        bytes.shrink_to_fit();
}

ssize_t writeOnce(int descriptor, std::string_view bytes) {
    const ssize_t sent = ::send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    return sent < 0 && errno == ENOTSOCK ? ::write(descriptor, bytes.data(), bytes.size()) : sent;
}

bool isPassing(int error) {
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

} // namespace

void FrameReader::append(std::string_view bytes) {
    if (m_isBroken)
        return;
    forgetWhatWasTaken();
    m_bytes.append(bytes);
}

std::optional<std::string> FrameReader::take() {
    Length length = 0;
    if (m_isBroken || rest().size() < sizeof length)
        return std::nullopt;
    std::memcpy(&length, rest().data(), sizeof length);
    if (length > maximumFrame) {
        m_isBroken = true;
        m_start = m_bytes.size();
        forgetWhatWasTaken();
        return std::nullopt;
    }
    if (rest().size() - sizeof length < length)
        return std::nullopt;
    std::string content(rest().substr(sizeof length, length));
    m_start += sizeof length + length;
    if (rest().empty())
        forgetWhatWasTaken();
    return content;
}

void FrameReader::forgetWhatWasTaken() {
    m_bytes.erase(0, m_start);
    m_start = 0;
    if (m_bytes.empty())
        release(m_bytes);
}

void FrameWriter::send(std::string_view content) {
    if (content.size() > maximumFrame)
        return;
    if (isIdle())
        m_bytes = framed(content);
    else
        m_waiting = framed(content);
}

bool FrameWriter::flush(int descriptor) {
    while (!isIdle()) {
        const ssize_t count = writeOnce(descriptor, std::string_view(m_bytes).substr(m_written));
        if (count < 0)
            return isPassing(errno);
        m_written += static_cast<std::size_t>(count);
        if (m_written < m_bytes.size())
            continue;
        m_written = 0;
        release(m_bytes);
        if (m_waiting)
            m_bytes = *std::exchange(m_waiting, std::nullopt);
    }
    return true;
}

ReadResult readOnce(int descriptor, FrameReader& reader) {
    std::array<char, pieceSize> piece;
    const ssize_t count = ::read(descriptor, piece.data(), piece.size());
    if (count < 0)
        return isPassing(errno) ? ReadResult::nothing : ReadResult::ended;
    if (count == 0)
        return ReadResult::ended;
    reader.append({piece.data(), static_cast<std::size_t>(count)});
    return ReadResult::bytes;
}

} // namespace tolvar
