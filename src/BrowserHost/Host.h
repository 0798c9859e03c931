#pragma once

#include "BrowserHost/AppFinder.h"
#include "BrowserHost/Descriptor.h"
#include "BrowserHost/Frames.h"

#include <string>

namespace tolvar {

/// Carries frames between a browser's extension, by a pair of pipes, and the running program, by
/// its socket.
///
/// To the program goes the browser's name and then what the extension says; of pictures that the
/// program is too slow for, only the newest. To the extension go the two permitted commands and
/// nothing else: a program that sends anything else is hung up on. While there is no program, what
/// the extension says is dropped, because each program asks anew.
class Host {
public:
    /// `browser` is the browser's name, of ordinary letters. `input` and `output` are the pipes
    /// from and to it.
    Host(std::string browser, AppFinder finder, int input, int output);

    enum class Outcome { browserLeft, wrongFrame, nowhereToWait };
    /// Runs until the browser ends the connection, or until nothing sensible can be done.
    Outcome run();
    const AppFinder& finder() const { return m_finder; }

private:
    enum class Step { goOn, end };

    void greet();
    int waitingTime() const;
    Step wait();
    Step hearBrowser();
    Step speakToBrowser(int events);
    void hearApp(int events);
    void relayCommands();
    void speakToApp();
    void leaveApp();
    Step end(Outcome outcome);

    std::string m_browser;
    AppFinder m_finder;
    int m_input;
    int m_output;
    FrameReader m_fromBrowser;
    FrameWriter m_toBrowser;
    Descriptor m_app;
    FrameReader m_fromApp;
    FrameWriter m_toApp;
    Outcome m_outcome = Outcome::browserLeft;
};

} // namespace tolvar
