#include "App/StatusItems/StatusItems.h"

#include "App/MenuBar/ChosenStatusItem.h"
#include "Platform/Linux/StatusNotifier/StatusNotifierPlace.h"
#include "Platform/Linux/SystemTray/SystemTrayPlace.h"
#include "Views/StatusPill/StatusDrawing.h"
#include "Views/StatusPill/StatusPillPlace.h"

#include <QDir>
#include <QGuiApplication>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// Beside the resources, as the program was installed or built; where that is none of the folders
/// that a desktop looks into, its panel is told.
QString iconFolder(const BundleInfo& bundle) {
    const QString folder = QDir::cleanPath(bundle.resourcesPath + u"/../icons"_s);
    return !bundle.resourcesPath.isEmpty() && QDir(folder).exists() ? folder : QString();
}

std::unique_ptr<StatusNotifierPlace> onTheBus(const StatusItems::Environment& environment) {
    return std::make_unique<StatusNotifierPlace>(
        StatusNotifierItem::Options{.bus = environment.bus,
                                    .identifier = environment.bundle.identifier,
                                    .title = environment.bundle.name,
                                    .iconThemePath = iconFolder(environment.bundle),
                                    .art = StatusDrawing::art(),
                                    .popups = environment.popups});
}

std::unique_ptr<SystemTrayPlace> inTheTray(const StatusItems::Environment& environment) {
    return SystemTrayPlace::create({.art = StatusDrawing::art(),
                                    .popups = environment.popups,
                                    .scale = qGuiApp->devicePixelRatio()});
}

/// `tray` knows the X server; without one, windows are always blended.
std::unique_ptr<StatusPillPlace> inTheCorner(const StatusItems::Environment& environment,
                                             const SystemTrayPlace* tray) {
    const auto ends = [tray] {
        return !tray || tray->isComposited() ? StatusPill::Ends::smooth : StatusPill::Ends::cut;
    };
    return std::make_unique<StatusPillPlace>(
        StatusPillPlace::Environment{.preferences = environment.preferences,
                                     .motion = environment.motion,
                                     .popups = environment.popups,
                                     .ends = ends});
}

} // namespace

std::unique_ptr<StatusItem> StatusItems::make(const Environment& environment) {
    std::vector<std::unique_ptr<StatusItemPlace>> places;
    places.push_back(onTheBus(environment));
    auto tray = inTheTray(environment);
    const SystemTrayPlace* server = tray.get();
    if (tray)
        places.push_back(std::move(tray));
    places.push_back(inTheCorner(environment, server));
    return std::make_unique<ChosenStatusItem>(std::move(places), environment.timers);
}

} // namespace tolvar
