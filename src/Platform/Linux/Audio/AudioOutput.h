#pragma once

#include "Platform/Interfaces/AudioDevice.h"

#include <functional>
#include <memory>
#include <optional>

namespace tolvar {

/// Tells one voice of a device from the others; never used again for another one.
using VoiceNumber = int;

/// A sound output that is open for as long as the object lives. It stays on the thread that opened
/// it; any call may wait for the hardware or a sound server.
class AudioOutput {
public:
    /// Called from any thread, as a hint that `isConnected` has become false.
    using Lost = std::function<void()>;
    /// Opens the output that the person chose for their desktop, or returns null.
    using Open = std::function<std::unique_ptr<AudioOutput>(Lost)>;

    virtual ~AudioOutput() = default;

    /// Whether what is played can still be heard.
    virtual bool isConnected() const = 0;
    /// 0 to 1, for all voices.
    virtual void setVolume(float volume) = 0;
    /// Plays the buffer from its beginning, in place of what plays on this voice.
    [[nodiscard]] virtual std::optional<AudioError>
    play(VoiceNumber voice, const std::shared_ptr<const AudioBuffer>& buffer) = 0;
    /// Cuts off what plays on this voice and frees what the voice needs.
    virtual void silence(VoiceNumber voice) = 0;
};

} // namespace tolvar
