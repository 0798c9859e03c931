#pragma once

#include <memory>

namespace tolvar {

class InstalledApplications;
class Preferences;
class SystemLog;
class TimerService;
class Workspace;

/// The real things behind the interfaces, as far as this desktop has them; else null objects.
namespace Adapters {

std::unique_ptr<SystemLog> systemLog();
/// `log` and `timers` outlive what is made with them.
std::unique_ptr<Preferences> preferences(SystemLog& log, TimerService& timers);
std::unique_ptr<Workspace> workspace(SystemLog& log);
std::unique_ptr<InstalledApplications> installedApplications();

} // namespace Adapters
} // namespace tolvar
