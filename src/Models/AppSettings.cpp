#include "Models/AppSettings.h"

#include "Models/CategoryStore.h"
#include "Models/LoginItem.h"
#include "Services/Updater.h"

namespace tolvar {

const std::map<QString, Preferences::Value>& AppSettings::defaults() {
    static const std::map<QString, Preferences::Value> values = {
        {showsMenuBarCountdown, true},  {keySoundsEnabled, true},   {soundVolume, 0.8},
        {sessionEndChimeEnabled, true}, {blockSoundEnabled, false}, {hapticsEnabled, true},
    };
    return values;
}

void AppSettings::resetAll(Preferences& preferences, LoginItemService& loginItem, Updater& updater,
                           CategoryStore& categories) {
    {
        const Preferences::Transaction together(preferences);
        for (const auto& [key, factoryValue] : defaults())
            preferences.remove(key);
    }
    static_cast<void>(LoginItem::setEnabled(loginItem, false));
    updater.setAutomaticallyChecksForUpdates(true);
    categories.restoreAllDefaults();
}

} // namespace tolvar
