#pragma once

#include "Platform/Interfaces/HapticPerformer.h"

#include <optional>

namespace tolvar {

class InterfaceSound;
class Preferences;

/// What the hand and the ear get when something is pressed, as far as the user has it switched on.
class Feedback {
public:
    enum class Event {
        keyPressed,
        keyReleased,
        switchedOn,
        switchedOff,
        sessionStarted,
        sessionPaused,
        sessionResumed,
        sessionStopped,
        sessionExtended,
        modeSelected,
        choiceToggled,
        pullArmed,
    };

    /// All outlive the feedback.
    Feedback(const Preferences& preferences, HapticPerformer& haptics, InterfaceSound& sound)
        : m_preferences(preferences)
        , m_haptics(haptics)
        , m_sound(sound) {}

    /// The pattern of an event; nothing for a key that comes back up.
    static std::optional<HapticPattern> pattern(Event event);

    /// Performs the event's pattern now, when "hapticsEnabled" is true.
    void play(Event event);
    /// A key went down or came back up: taps when `taps` and it went down, and clicks when
    /// `clicks`.
    void keyMoved(bool isPressed, bool taps, bool clicks);
    /// The mode selector moved: the pattern under its setting, the sound under its own.
    void modeSwitched();

private:
    const Preferences& m_preferences;
    HapticPerformer& m_haptics;
    InterfaceSound& m_sound;
};

} // namespace tolvar
