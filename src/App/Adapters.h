#pragma once

#include <QDBusConnection>
#include <QString>

#include <memory>

namespace tolvar {

class AccessibilitySettings;
class AudioDevice;
class AudioFileReader;
class BrowserChannel;
class BrowserCompanions;
class IconThemeSettings;
class InstalledApplications;
class PanelWindows;
class PointerPresses;
class Preferences;
class SystemLog;
class TimerService;
class Workspace;
struct BundleInfo;

/// The real things behind the interfaces, as far as this desktop has them; else null objects.
namespace Adapters {

/// Whether windows can be shown.
bool isDisplayReachable();
/// Where the preferences lie: "tolvar" below XDG_DATA_HOME (XDG Base Directory Specification).
QString dataFolder();
std::unique_ptr<SystemLog> systemLog();
/// `log` and `timers` outlive what is made with them.
std::unique_ptr<Preferences> preferences(SystemLog& log, TimerService& timers);
std::unique_ptr<Workspace> workspace(SystemLog& log);
std::unique_ptr<InstalledApplications> installedApplications();
std::unique_ptr<IconThemeSettings> iconThemeSettings();
std::unique_ptr<PanelWindows> panelWindows();
std::unique_ptr<PointerPresses> pointerPresses();
/// The browsers in which Tolvar's extension runs, from now on. `log` outlives it.
std::unique_ptr<BrowserChannel> browserChannel(SystemLog& log, TimerService& timers);
/// `bus` need not be connected.
std::unique_ptr<AccessibilitySettings> accessibilitySettings(const QDBusConnection& bus);
/// Opens nothing before it is started. To be called on the main thread.
std::unique_ptr<AudioDevice> audioDevice();
std::unique_ptr<AudioFileReader> audioFileReader();
std::unique_ptr<BrowserCompanions> browserCompanions(const BundleInfo& bundle);

} // namespace Adapters
} // namespace tolvar
