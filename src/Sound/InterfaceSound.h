#pragma once

namespace tolvar {

/// The application's short interface sounds.
class InterfaceSound {
public:
    enum class Sound { keyDown, keyUp, modeSwitch, sessionEnd, blocked };
    /// A preview is heard even when its setting is off.
    enum class Preview { no, yes };

    virtual ~InterfaceSound() = default;

    /// Plays a sound now, unless its setting is off.
    virtual void play(Sound sound, Preview preview = Preview::no) = 0;
    /// Whether the sound's sample is there to be played.
    virtual bool isLoaded(Sound sound) const = 0;
};

/// No sound at all: no sample is loaded and nothing is heard.
class SilentInterfaceSound final : public InterfaceSound {
public:
    void play(Sound, Preview) override {}
    bool isLoaded(Sound) const override { return false; }
};

} // namespace tolvar
