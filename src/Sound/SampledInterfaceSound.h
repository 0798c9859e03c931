#pragma once

#include "Platform/Interfaces/AudioDevice.h"
#include "Platform/Interfaces/AudioFileReader.h"
#include "Platform/Interfaces/Preferences.h"
#include "Platform/Interfaces/SystemLog.h"
#include "Platform/Interfaces/TimerService.h"
#include "Sound/InterfaceSound.h"
#include "Sound/SoundSamples.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace tolvar {

/// Plays recorded interface sounds on an audio device that it keeps running only while somebody
/// holds it awake; otherwise a sound starts the device, which is stopped 3.0 s later, also when
/// further sounds were played in between.
///
/// Sounds of the key-down sample's format share four voices in turn: four quick clicks overlap, the
/// fifth cuts off the first. A sound of another format has a voice of its own. The settings are
/// read at every sound. Nothing is read, started or attached before the first sound or hold.
/// Without a key-down sample nothing is heard at all.
class SampledInterfaceSound final : public InterfaceSound {
public:
    /// All of it outlives this object. Nobody else uses the device.
    struct Environment {
        AudioDevice& device;
        const AudioFileReader& reader;
        const Preferences& preferences;
        TimerService& timers;
        SystemLog& log;
        /// The folder that holds the folder "Sounds".
        QString resourcesPath;
    };

    explicit SampledInterfaceSound(const Environment& environment);

    void play(Sound sound, Preview preview = Preview::no) override;
    bool isLoaded(Sound sound) const override;
    Hold stayAwake() override;

private:
    using Buffer = std::shared_ptr<const AudioBuffer>;
    using Voice = std::unique_ptr<AudioVoice>;

    bool isEnabled(Sound sound) const;
    void startDevice();
    /// Keeps the device awake while it is held, else lets it stop by itself after a while.
    void updateDevice();
    void stopWhenIdle();
    void releaseHold();
    void stopVoices();

    std::optional<AudioError> attachPool(const AudioFormat& format);
    std::optional<AudioError> schedule(Sound sound, const Buffer& buffer);
    std::variant<AudioVoice*, AudioError> voice(Sound sound, const AudioFormat& format);
    std::variant<AudioVoice*, AudioError> soloVoice(Sound sound, const AudioFormat& format);
    void playFailed(Sound sound, const AudioError& error);
    void logFailure(const QString& what, const AudioError& error) const;

    Environment m_environment;
    mutable SoundSamples m_samples;
    std::vector<Voice> m_pool;
    std::size_t m_nextVoice = 0;
    std::map<Sound, Voice> m_soloVoices;
    int m_holds = 0;
    std::unique_ptr<Timer> m_pendingStop;
    Subscription m_configurationChanges;
    /// Expires with this object, for the holds that outlive it.
    std::shared_ptr<SampledInterfaceSound*> m_self;
};

} // namespace tolvar
