#pragma once

#include "Extensions/Subscription.h"

namespace tolvar {

/// The application's short interface sounds.
class InterfaceSound {
public:
    enum class Sound { keyDown, keyUp, modeSwitch, sessionEnd, blocked };
    /// A preview is heard even when its setting is off.
    enum class Preview { no, yes };
    /// Keeps sounds ready to be heard without delay for as long as it lives. It may outlive what it
    /// came from.
    using Hold = Subscription;

    virtual ~InterfaceSound() = default;

    /// Plays a sound now, unless its setting is off. Never waits and never fails.
    virtual void play(Sound sound, Preview preview = Preview::no) = 0;
    /// Whether the sound's sample is there to be played.
    virtual bool isLoaded(Sound sound) const = 0;
    /// To be held by a screen that makes many sounds, while it is shown.
    virtual Hold stayAwake() = 0;
};

/// No sound at all: no sample is loaded and nothing is heard.
class SilentInterfaceSound final : public InterfaceSound {
public:
    void play(Sound, Preview) override {}
    bool isLoaded(Sound) const override { return false; }
    Hold stayAwake() override { return {}; }
};

} // namespace tolvar
