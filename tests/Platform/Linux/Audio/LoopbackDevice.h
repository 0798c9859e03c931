#pragma once

#include "Platform/Linux/Audio/OpenAlOutput.h"

#include <vector>

namespace tolvar::test {

/// An audio device that renders the real mix of OpenAL when it is asked to, on the calling thread
/// and always the same, at 48,000 stereo frames per second.
class LoopbackDevice final : public AudioDevice {
public:
    void start() override;
    void stop() override { m_output.reset(); }
    bool isRunning() const override { return m_output != nullptr; }
    void setMainVolume(double volume) override;
    Attached attachVoice(const AudioFormat& format) override;
    Subscription observeConfigurationChanges(std::function<void()>) override { return {}; }

    struct Frame {
        float left = 0;
        float right = 0;

        bool operator==(const Frame&) const = default;
    };
    /// Lets this many frames be heard; silence when it does not run.
    std::vector<Frame> render(std::size_t frames);

private:
    class Voice;

    ALCdevice* m_device = nullptr;
    std::unique_ptr<OpenAlOutput> m_output;
    VoiceNumber m_lastVoice = 0;
};

} // namespace tolvar::test
