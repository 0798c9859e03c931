#pragma once

#include "Platform/Interfaces/BundleInfo.h"
#include "Platform/Interfaces/StatusItem.h"

#include <QDBusConnection>

#include <memory>

namespace tolvar {

class AnimationDriver;
class Preferences;
class StatusItemPopups;
class TimerService;

/// The status item in the best place that this desktop has for it: a panel on the session bus, an
/// X11 system tray, or a corner of the screen.
namespace StatusItems {

/// All outlive the item.
struct Environment {
    /// Need not be connected.
    QDBusConnection bus;
    BundleInfo bundle;
    Preferences& preferences;
    TimerService& timers;
    AnimationDriver& motion;
    StatusItemPopups& popups;
};

/// Needs the QApplication.
std::unique_ptr<StatusItem> make(const Environment& environment);

} // namespace StatusItems
} // namespace tolvar
