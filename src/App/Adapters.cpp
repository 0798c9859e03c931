#include "App/Adapters.h"

#include "Platform/Common/SqlitePreferences.h"
#include "Platform/Linux/Desktop/DesktopEntries.h"
#include "Platform/Linux/Desktop/XdgInstalledApplications.h"
#include "Platform/Linux/Journal/JournalLog.h"
#include "Platform/Linux/X11/X11Workspace.h"
#include "Platform/Null/NullWorkspace.h"

#include <QStandardPaths>

namespace tolvar {

using namespace Qt::StringLiterals;

std::unique_ptr<SystemLog> Adapters::systemLog() {
    return std::make_unique<JournalLog>();
}

std::unique_ptr<Preferences> Adapters::preferences(SystemLog& log, TimerService& timers) {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return std::make_unique<SqlitePreferences>(data + u"/tolvar/preferences.sqlite3"_s, log,
                                               timers);
}

std::unique_ptr<Workspace> Adapters::workspace(SystemLog& log) {
    if (auto workspace = X11Workspace::create(DesktopEntries::ofThisDesktop(), log))
        return workspace;
    return std::make_unique<NullWorkspace>();
}

std::unique_ptr<InstalledApplications> Adapters::installedApplications() {
    return std::make_unique<XdgInstalledApplications>(DesktopEntries::ofThisDesktop());
}

} // namespace tolvar
