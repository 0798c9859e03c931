#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Frames as native messaging has them: a length of 32 bits in the machine's byte order, then so
/// many bytes of JSON. Both legs of the way to a browser speak in them.
namespace tolvar {

/// No frame is longer, in either direction and on either leg.
inline constexpr std::size_t maximumFrame = std::size_t{1} << 20;

/// Finds the frames in a stream that arrives in pieces.
class FrameReader {
public:
    /// Adds what arrived. Take all frames after each piece: what waits here is then never longer
    /// than one frame and one piece. Ignored once the stream is broken.
    void append(std::string_view bytes);
    /// The content of the next frame, possibly empty; nothing while none has arrived whole.
    std::optional<std::string> take();
    /// Whether a frame longer than permitted was announced. Nothing behind it can be understood.
    bool isBroken() const { return m_isBroken; }

private:
    std::string_view rest() const { return std::string_view(m_bytes).substr(m_start); }
    void forgetWhatWasTaken();

    std::string m_bytes;
    std::size_t m_start = 0;
    bool m_isBroken = false;
};

/// Writes frames to a descriptor that may be slow or stuck, and never keeps more than two: the one
/// that is on its way and the newest one behind it.
class FrameWriter {
public:
    /// Has `content` written; it replaces another that waits and has not begun. Content longer than
    /// a frame may be is dropped.
    void send(std::string_view content);
    /// Writes as much as the descriptor, which must be a non-blocking one, takes now. False when
    /// nobody reads there any more. Sockets raise no SIGPIPE; for pipes the caller ignores it.
    bool flush(int descriptor);
    /// Whether everything has been written.
    bool isIdle() const { return m_bytes.empty(); }

private:
    std::string m_bytes;
    std::size_t m_written = 0;
    std::optional<std::string> m_waiting;
};

enum class ReadResult { bytes, nothing, ended };

/// Reads once, at most 64 KiB, from a descriptor into the reader. `nothing` when none has arrived,
/// `ended` when none will.
ReadResult readOnce(int descriptor, FrameReader& reader);

} // namespace tolvar
