#pragma once

#include "Motion/FrameSource.h"

namespace tolvar::test {

/// Frames made by hand. Media time passes only in `advance` and `jumpTo`.
class HandFrames final : public FrameSource {
public:
    static constexpr double rate = 60; ///< frames per second

    void start(Callback callback) override;
    void stop() override;
    double mediaTime() const override { return m_mediaTime; }

    /// Lets time pass: a frame every 1 / `rate` seconds, and one at exactly the end. Time passes
    /// also while nobody asks for frames.
    void advance(double seconds);
    /// Makes one frame at this media time, whichever it is.
    void jumpTo(double mediaTime);
    /// Lets time pass in which no frame could be made, as while the event loop is busy.
    void stall(double seconds) { m_mediaTime += seconds; }

    bool isRunning() const { return m_callback != nullptr; }
    /// How often frames were asked for, and how often no more.
    int starts() const { return m_starts; }
    int stops() const { return m_stops; }
    /// How many frames were delivered.
    int frames() const { return m_frames; }

private:
    double m_mediaTime = 1000;
    Callback m_callback;
    int m_starts = 0;
    int m_stops = 0;
    int m_frames = 0;
};

} // namespace tolvar::test
