#include "App/Adapters.h"

#include "BrowserHost/PrivateFolder.h"
#include "Platform/Common/CombinedAccessibilitySettings.h"
#include "Platform/Common/SqlitePreferences.h"
#include "Platform/Interfaces/BundleInfo.h"
#include "Platform/Linux/Audio/OpenAlDevice.h"
#include "Platform/Linux/Audio/WaveFileReader.h"
#include "Platform/Linux/BrowserSetup/BrowserSetup.h"
#include "Platform/Linux/Browsers/CompanionChannel.h"
#include "Platform/Linux/DBus/PortalAccessibilitySettings.h"
#include "Platform/Linux/Desktop/DesktopEntries.h"
#include "Platform/Linux/Desktop/XdgIconThemeSettings.h"
#include "Platform/Linux/Desktop/XdgInstalledApplications.h"
#include "Platform/Linux/Journal/JournalLog.h"
#include "Platform/Linux/X11/X11AccessibilitySettings.h"
#include "Platform/Linux/X11/X11IconThemeSettings.h"
#include "Platform/Linux/X11/X11PanelWindows.h"
#include "Platform/Linux/X11/X11PointerPresses.h"
#include "Platform/Linux/X11/X11Workspace.h"
#include "Platform/Null/NullPanelWindows.h"
#include "Platform/Null/NullWorkspace.h"

#include <QStandardPaths>

namespace tolvar {

using namespace Qt::StringLiterals;

bool Adapters::isDisplayReachable() {
    return X11PanelWindows::create() != nullptr;
}

QString Adapters::dataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/tolvar"_s;
}

std::unique_ptr<SystemLog> Adapters::systemLog() {
    return std::make_unique<JournalLog>();
}

std::unique_ptr<Preferences> Adapters::preferences(SystemLog& log, TimerService& timers) {
    return std::make_unique<SqlitePreferences>(dataFolder() + u"/preferences.sqlite3"_s, log,
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

std::unique_ptr<IconThemeSettings> Adapters::iconThemeSettings() {
    std::unique_ptr<IconThemeSettings> files =
        std::make_unique<XdgIconThemeSettings>(XdgIconThemeSettings::ofThisDesktop());
    if (auto ofDesktop = X11IconThemeSettings::create(files))
        return ofDesktop;
    return files;
}

std::unique_ptr<PanelWindows> Adapters::panelWindows() {
    if (auto panels = X11PanelWindows::create())
        return panels;
    return std::make_unique<NullPanelWindows>();
}

std::unique_ptr<PointerPresses> Adapters::pointerPresses() {
    return std::make_unique<X11PointerPresses>();
}

std::unique_ptr<BrowserChannel> Adapters::browserChannel(SystemLog& log, TimerService& timers) {
    return std::make_unique<CompanionChannel>(PrivateFolder::path(), log, timers);
}

std::unique_ptr<AccessibilitySettings> Adapters::accessibilitySettings(const QDBusConnection& bus) {
    CombinedAccessibilitySettings::Sources sources;
    sources.push_back(std::make_unique<PortalAccessibilitySettings>(bus));
    if (auto ofX11 = X11AccessibilitySettings::create())
        sources.push_back(std::move(ofX11));
    return std::make_unique<CombinedAccessibilitySettings>(std::move(sources));
}

std::unique_ptr<AudioDevice> Adapters::audioDevice() {
    return OpenAlDevice::create();
}

std::unique_ptr<AudioFileReader> Adapters::audioFileReader() {
    return std::make_unique<WaveFileReader>();
}

std::unique_ptr<BrowserCompanions> Adapters::browserCompanions(const BundleInfo& bundle) {
    return std::make_unique<BrowserSetup>(BrowserSetup::ofThisUser(
        {.host = bundle.browserHostPath, .extensions = bundle.resourcesPath + u"/browser"_s}));
}

} // namespace tolvar
