#pragma once

#include "Platform/Linux/Audio/AudioThread.h"

#include <QObject>

#include <map>

namespace tolvar {

/// An audio device whose output is opened, used and closed on a thread of its own: a sound server
/// that is slow or hangs never makes the interface wait. The thread begins with the first `start`.
///
/// The device counts as running from `start` on, while the output is still being opened. A sound
/// asked for meanwhile is played once the output is open, if that takes no longer than
/// `AudioPatience::sound`, and dropped otherwise; one that is asked for repeatedly is heard once.
class ThreadedAudioDevice final : public AudioDevice {
public:
    /// `open` is called on the audio thread.
    explicit ThreadedAudioDevice(AudioOutput::Open open, const AudioPatience& patience = {});
    ~ThreadedAudioDevice() override;

    void start() override;
    void stop() override;
    bool isRunning() const override { return m_run != AudioThread::none; }
    void setMainVolume(double volume) override;
    /// Only formats of one or two channels and a rate of 1 to 192,000 frames per second.
    Attached attachVoice(const AudioFormat& format) override;
    Subscription observeConfigurationChanges(std::function<void()> changed) override;

private:
    class Voice;
    using Observers = std::map<int, std::function<void()>>;

    void receive(const AudioThread::OpenFailed& report);
    void receive(const AudioThread::OutputLost& report);
    void receive(const AudioThread::PlayFailed& report);

    const AudioOutput::Open m_open;
    const AudioPatience m_patience;
    std::shared_ptr<AudioThread> m_thread;
    AudioThread::Run m_run = AudioThread::none;
    AudioThread::Run m_lastRun = AudioThread::none;
    float m_volume = 1;
    VoiceNumber m_lastVoice = 0;
    std::map<VoiceNumber, Voice*> m_voices;
    int m_nextObserver = 0;
    std::shared_ptr<Observers> m_observers;
    /// What the thread posts its reports to; what has not arrived when it goes never does.
    QObject m_mailbox;
};

} // namespace tolvar
