#pragma once

#include "Platform/Linux/Audio/AudioOutput.h"

#include <AL/alc.h>

#include <map>
#include <memory>
#include <vector>

namespace tolvar {

/// An output of OpenAL: voices are its sources, the volume is its listener's gain.
///
/// Samples reach the output as they are: two channels go straight to the two loudspeakers, and of
/// one channel both get all, where OpenAL would place it in the room and take it down to 0.6.
class OpenAlOutput final : public AudioOutput {
public:
    /// Opens the default output of this desktop; null when there is none.
    static std::unique_ptr<AudioOutput> open(Lost lost);
    /// Uses a device that is open already, which becomes this object's own; null when it cannot be
    /// used, and then it is closed. `attributes` as for alcCreateContext; null for none.
    static std::unique_ptr<OpenAlOutput> on(ALCdevice* device, const ALCint* attributes, Lost lost);
    ~OpenAlOutput() override;
    OpenAlOutput(const OpenAlOutput&) = delete;
    OpenAlOutput& operator=(const OpenAlOutput&) = delete;

    bool isConnected() const override;
    void setVolume(float volume) override;
    std::optional<AudioError> play(VoiceNumber voice,
                                   const std::shared_ptr<const AudioBuffer>& buffer) override;
    void silence(VoiceNumber voice) override;

private:
    struct CloseDevice {
        void operator()(ALCdevice* device) const { alcCloseDevice(device); }
    };
    struct DestroyContext {
        void operator()(ALCcontext* context) const;
    };
    using Device = std::unique_ptr<ALCdevice, CloseDevice>;
    using Context = std::unique_ptr<ALCcontext, DestroyContext>;
    struct Upload {
        /// Kept, so that no other buffer comes to lie at its address.
        std::shared_ptr<const AudioBuffer> buffer;
        unsigned name = 0;
    };

    OpenAlOutput(Device device, Context context, Lost lost);

    void watchConnection();
    unsigned source(VoiceNumber voice);
    /// OpenAL's own copy, made once per buffer; 0 when it refuses.
    unsigned uploaded(const std::shared_ptr<const AudioBuffer>& buffer);

    /// Called from a thread of OpenAL until the context is gone.
    Lost m_lost;
    Device m_device;
    Context m_context;
    std::map<VoiceNumber, unsigned> m_sources;
    std::vector<Upload> m_uploads;
};

} // namespace tolvar
