#pragma once

#include "BrowserHost/Descriptor.h"
#include "BrowserHost/Frames.h"

#include <sys/types.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace tolvar::test {

/// The real host as a browser starts it, with the test as the browser and its extension. Killed, if
/// it still runs, when this goes.
class HostProcess {
public:
    /// Starts the host for Tolvar's extension in Chromium; it looks for the program in
    /// `runtimeFolder`, its XDG_RUNTIME_DIR.
    explicit HostProcess(const std::string& runtimeFolder);
    /// Starts it with other arguments.
    HostProcess(const std::string& runtimeFolder, std::initializer_list<std::string> arguments);
    ~HostProcess();
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;

    /// Says a frame, or bytes that are none, as the extension.
    void say(std::string_view content);
    void sayBytes(std::string_view bytes);
    /// The next frame that the extension is sent; nothing when none comes within some seconds or
    /// the host closes its output.
    std::optional<std::string> heard();
    /// The next frame that has been sent by now.
    std::optional<std::string> heardByNow();
    /// Ends the connection as a browser does.
    void hangUp();
    void stopReading() { m_output.reset(); }
    /// Kills it at once.
    void kill();
    /// Its exit status once it has ended; -1 when a signal ended it.
    int status();

    pid_t process() const { return m_process; }
    /// How often it was woken up.
    int wakeUps() const;
    /// Waits until it sleeps, with nothing more to do.
    void awaitSleep() const;

private:
    void start(const std::string& runtimeFolder, std::initializer_list<std::string> arguments);
    std::string fact(const char* file, const char* name) const;

    pid_t m_process = -1;
    Descriptor m_input;
    Descriptor m_output;
    FrameReader m_reader;
};

} // namespace tolvar::test
