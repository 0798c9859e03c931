#pragma once

#include "BrowserHost/Descriptor.h"
#include "BrowserHost/Frames.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tolvar::test {

/// Lets the event loop run until the condition holds; false when it does not within some seconds.
bool eventually(const std::function<bool()>& condition);
/// Lets everything happen that is due.
void settle();

/// A browser's host, played by the test, at the socket in a folder. May say anything.
class PlayedCompanion {
public:
    /// Connects and says nothing.
    explicit PlayedCompanion(const std::string& folder);
    /// Connects and tells the browser's name.
    PlayedCompanion(const std::string& folder, std::string_view browser);

    void say(std::string_view content);
    void sayBytes(std::string_view bytes);
    /// The next frame of the program; nothing when none comes within some seconds. The event loop
    /// runs meanwhile.
    std::optional<std::string> heard();
    /// Whether the program hangs up within some seconds; what it says first is dropped.
    bool isHungUpOn();
    void hangUp() { m_socket.reset(); }
    bool isConnected() const { return static_cast<bool>(m_socket); }

private:
    Descriptor m_socket;
    FrameReader m_reader;
};

/// {"shown":[…]} with one tab in window 4711.
std::string pictureOf(int tab, std::string_view url);

} // namespace tolvar::test
