#pragma once

#include "Platform/Linux/Audio/AudioOutput.h"
#include "Support/Texts.h"

#include <condition_variable>
#include <mutex>

namespace tolvar::test {

/// What fake outputs share with their test: the test decides when an output opens and whether it
/// stays, and sees what was done. Everything may be called from any thread.
///
/// Lines: "open", "close", "volume N" (when it changes), "play VOICE", "silence VOICE".
class FakeOutputs {
public:
    FakeOutputs() = default;
    FakeOutputs(const FakeOutputs&) = delete;
    FakeOutputs& operator=(const FakeOutputs&) = delete;
    /// Waits until every output is closed: a device that was given up may still be at it.
    ~FakeOutputs();

    AudioOutput::Open opener();

    /// Opening waits until `letOpen`, closing until `letClose`.
    void holdOpening();
    void letOpen();
    void holdClosing();
    void letClose();
    /// The next opening fails.
    void refuseOpening();
    /// Playing fails until `allowPlaying`.
    void refusePlaying();
    void allowPlaying();
    /// Outputs are not connected any more; the open one tells of it, or leaves it to be noticed.
    enum class Notice { told, untold };
    void disconnect(Notice notice);
    /// Outputs that are opened from now on are connected again.
    void connect();

    /// Waits until this line is there, ten seconds at most, and takes the lines up to it.
    Texts until(const QString& line);
    /// The lines so far.
    Texts take();

private:
    class Output;

    void record(const QString& line);
    /// With the lock held.
    void forgetOutput();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    Texts m_lines;
    AudioOutput::Lost m_lost;
    /// Opening, open or closing.
    int m_outputs = 0;
    bool m_isOpeningHeld = false;
    bool m_isClosingHeld = false;
    bool m_opens = true;
    bool m_plays = true;
    bool m_isConnected = true;
};

} // namespace tolvar::test
