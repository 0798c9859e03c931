#pragma once

#include <QString>

#include <memory>

namespace tolvar {

class AudioDevice;
class AudioFileReader;
class InstalledApplications;
class Preferences;
class SystemLog;
class TimerService;
class Workspace;

/// The real things behind the interfaces, as far as this desktop has them; else null objects.
namespace Adapters {

/// Where the preferences lie: "tolvar" below XDG_DATA_HOME (XDG Base Directory Specification).
QString dataFolder();
std::unique_ptr<SystemLog> systemLog();
/// `log` and `timers` outlive what is made with them.
std::unique_ptr<Preferences> preferences(SystemLog& log, TimerService& timers);
std::unique_ptr<Workspace> workspace(SystemLog& log);
std::unique_ptr<InstalledApplications> installedApplications();
/// Opens nothing before it is started. To be called on the main thread.
std::unique_ptr<AudioDevice> audioDevice();
std::unique_ptr<AudioFileReader> audioFileReader();

} // namespace Adapters
} // namespace tolvar
