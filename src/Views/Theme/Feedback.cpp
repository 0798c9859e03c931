#include "Views/Theme/Feedback.h"

#include "Models/AppSettings.h"
#include "Platform/Interfaces/Preferences.h"
#include "Sound/InterfaceSound.h"

namespace tolvar {

std::optional<HapticPattern> Feedback::pattern(Event event) {
    switch (event) {
    case Event::keyPressed:
        return HapticPattern::generic;
    case Event::keyReleased:
        return std::nullopt;
    case Event::switchedOn:
    case Event::switchedOff:
    case Event::choiceToggled:
    case Event::pullArmed:
        return HapticPattern::alignment;
    case Event::sessionStarted:
    case Event::sessionPaused:
    case Event::sessionResumed:
    case Event::sessionStopped:
    case Event::sessionExtended:
    case Event::modeSelected:
        return HapticPattern::levelChange;
    }
    return std::nullopt;
}

void Feedback::play(Event event) {
    if (const auto wanted = pattern(event);
        wanted && m_preferences.boolean(AppSettings::hapticsEnabled))
        m_haptics.perform(*wanted);
}

void Feedback::keyMoved(bool isPressed, bool taps, bool clicks) {
    if (taps)
        play(isPressed ? Event::keyPressed : Event::keyReleased);
    if (clicks)
        m_sound.play(isPressed ? InterfaceSound::Sound::keyDown : InterfaceSound::Sound::keyUp);
}

void Feedback::modeSwitched() {
    play(Event::modeSelected);
    m_sound.play(InterfaceSound::Sound::modeSwitch);
}

} // namespace tolvar
