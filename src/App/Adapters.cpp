#include "App/Adapters.h"

#include "Platform/Linux/Desktop/DesktopEntries.h"
#include "Platform/Linux/X11/X11Workspace.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Platform/Null/NullInstalledApplications.h"
#include "Platform/Null/NullSystemLog.h"
#include "Platform/Null/NullWorkspace.h"

namespace tolvar {

std::unique_ptr<SystemLog> Adapters::systemLog(const BundleInfo&) {
    return std::make_unique<NullSystemLog>();
}

std::unique_ptr<Preferences> Adapters::preferences(SystemLog&) {
    return std::make_unique<MemoryPreferences>();
}

std::unique_ptr<Workspace> Adapters::workspace(SystemLog& log) {
    if (auto workspace = X11Workspace::create(DesktopEntries::ofThisDesktop(), log))
        return workspace;
    return std::make_unique<NullWorkspace>();
}

std::unique_ptr<InstalledApplications> Adapters::installedApplications() {
    return std::make_unique<NullInstalledApplications>();
}

} // namespace tolvar
