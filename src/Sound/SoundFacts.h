#pragma once

#include "Sound/InterfaceSound.h"

#include <QLatin1StringView>

namespace tolvar {

/// What is fixed about each interface sound.
struct SoundFacts {
    /// As the log names it.
    QLatin1StringView name;
    /// Its sample within the folder "Sounds".
    QLatin1StringView file;
    /// The setting that it is heard under. The settings belong to the layer above, which knows
    /// their factory values.
    QLatin1StringView setting;
};

inline SoundFacts factsOf(InterfaceSound::Sound sound) {
    using namespace Qt::StringLiterals;
    using Sound = InterfaceSound::Sound;
    switch (sound) {
    case Sound::keyDown:
        return {"keyDown"_L1, "key-down.wav"_L1, "keySoundsEnabled"_L1};
    case Sound::keyUp:
        return {"keyUp"_L1, "key-up.wav"_L1, "keySoundsEnabled"_L1};
    case Sound::modeSwitch:
        return {"modeSwitch"_L1, "mode-switch.wav"_L1, "keySoundsEnabled"_L1};
    case Sound::sessionEnd:
        return {"sessionEnd"_L1, "chime.wav"_L1, "sessionEndChimeEnabled"_L1};
    case Sound::blocked:
        return {"blocked"_L1, "blocked.wav"_L1, "blockSoundEnabled"_L1};
    }
    Q_UNREACHABLE();
}

} // namespace tolvar
