#pragma once

#include "Platform/Interfaces/AudioDevice.h"

namespace tolvar {

/// A machine without sound: it never runs, and nothing is wrong with that.
class NullAudioDevice final : public AudioDevice {
public:
    void start() override {}
    void stop() override {}
    bool isRunning() const override { return false; }
    void setMainVolume(double) override {}
    Attached attachVoice(const AudioFormat&) override { return std::make_unique<Voice>(); }
    Subscription observeConfigurationChanges(std::function<void()>) override { return {}; }

private:
    class Voice final : public AudioVoice {
    public:
        std::optional<AudioError> schedule(std::shared_ptr<const AudioBuffer>, Failed) override {
            return std::nullopt;
        }
        void stop() override {}
    };
};

} // namespace tolvar
