#pragma once

#include "Extensions/Subscription.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace tolvar {

struct AudioFormat {
    /// Frames per second.
    int sampleRate = 0;
    int channels = 0;

    bool operator==(const AudioFormat&) const = default;
};

/// A decoded sound.
struct AudioBuffer {
    AudioFormat format;
    /// Frame by frame, the channels of a frame beside each other; 1 and -1 are full scale.
    std::vector<float> samples;

    bool operator==(const AudioBuffer&) const = default;
};

/// Why something could not be played.
struct AudioError {
    /// For the log; a phrase without a full stop.
    QString reason;

    bool operator==(const AudioError&) const = default;
};

/// What plays one sound at a time into its device. Destroying it cuts the sound off.
class AudioVoice {
public:
    using Failed = std::function<void(const AudioError&)>;

    virtual ~AudioVoice() = default;

    /// Plays the buffer from its beginning as soon as the device can; what still plays on this
    /// voice is cut off and replaced. Returns an error when it is known at once that the buffer
    /// cannot be played. `failed` is called when that turns out later; not once the voice is
    /// destroyed or was given another buffer.
    [[nodiscard]] virtual std::optional<AudioError>
    schedule(std::shared_ptr<const AudioBuffer> buffer, Failed failed) = 0;
    /// Cuts off what plays.
    virtual void stop() = 0;
};

/// The output of sound: voices, mixed and played at one main volume. It costs the machine something
/// only from `start` to `stop`.
///
/// No call waits for the hardware or a sound server. Voices outlive `stop` and may be used again
/// after the next `start`; they must not outlive the device. All calls are made on the thread that
/// owns the device, and its observers are called there.
class AudioDevice {
public:
    using Attached = std::variant<std::unique_ptr<AudioVoice>, AudioError>;

    virtual ~AudioDevice() = default;

    /// Starts the output, unless it runs. A failure is silent: the device does not run then, which
    /// may show only after a while, and nobody is told, so that nobody tries again at once.
    virtual void start() = 0;
    /// Cuts everything off and lets the output go.
    virtual void stop() = 0;
    /// Whether what is scheduled will be heard, as far as is known.
    virtual bool isRunning() const = 0;

    /// 0 (silent) to 1 (as recorded); what lies beyond is taken for the nearer of them. Concerns
    /// everything that plays.
    virtual void setMainVolume(double volume) = 0;
    /// A voice for buffers of this format.
    [[nodiscard]] virtual Attached attachVoice(const AudioFormat& format) = 0;

    /// Calls `changed` when an output that was there went away by itself: it was unplugged, or its
    /// server ended. The device does not run then.
    [[nodiscard]] virtual Subscription
    observeConfigurationChanges(std::function<void()> changed) = 0;
};

} // namespace tolvar
