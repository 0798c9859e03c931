#pragma once

#include "Platform/Interfaces/Preferences.h"

namespace tolvar {

class CategoryStore;
class LoginItemService;
class Updater;

/// The settings a person can change, as keys of the preferences with their factory values.
namespace AppSettings {

inline const QString showsMenuBarCountdown = QStringLiteral("showsMenuBarCountdown");
inline const QString keySoundsEnabled = QStringLiteral("keySoundsEnabled");
/// 0 to 1.
inline const QString soundVolume = QStringLiteral("soundVolume");
inline const QString sessionEndChimeEnabled = QStringLiteral("sessionEndChimeEnabled");
inline const QString blockSoundEnabled = QStringLiteral("blockSoundEnabled");
inline const QString hapticsEnabled = QStringLiteral("hapticsEnabled");

/// The factory values, to be registered before anything reads a setting.
const std::map<QString, Preferences::Value>& defaults();

/// Everything goes back to its factory state: the settings above, opening at login (off; a failure
/// is ignored), automatic update checks (on) and the categories. Presets and history stay.
void resetAll(Preferences& preferences, LoginItemService& loginItem, Updater& updater,
              CategoryStore& categories);

} // namespace AppSettings
} // namespace tolvar
