#pragma once

#include "BrowserHost/Descriptor.h"
#include "BrowserHost/Frames.h"

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

namespace tolvar::test {

/// The running program, played by the test: it listens in "tolvar" below the runtime folder and may
/// say anything. Its socket file stays behind when it goes, as a killed program's does.
class PlayedApp {
public:
    explicit PlayedApp(const std::string& runtimeFolder, mode_t socketMode = 0600);

    /// Lets the next host in; false when none comes within some seconds.
    bool letIn();
    /// Whether a host waits to be let in, now.
    bool isSought() const;
    /// The next frame of the host that was let in last; nothing when none comes within some seconds
    /// or the host hangs up.
    std::optional<std::string> heard();
    /// Whether the host hangs up within some seconds; what it says first is dropped.
    bool isLeft();
    void say(std::string_view content);
    void sayBytes(std::string_view bytes);
    /// Says as much of this as the connection holds; how many bytes that was.
    std::size_t sayWithoutWaiting(std::string_view bytes);
    void hangUp() { m_host.reset(); }

private:
    Descriptor m_socket;
    Descriptor m_host;
    FrameReader m_reader;
};

} // namespace tolvar::test
