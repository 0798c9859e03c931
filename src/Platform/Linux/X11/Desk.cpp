#include "Platform/Linux/X11/Desk.h"

#include <QHash>

#include <algorithm>
#include <iterator>

namespace tolvar {

std::vector<RunningApplication> Desk::applications() const {
    std::vector<RunningApplication> applications;
    QHash<QString, std::size_t> places;
    for (const DeskWindow& window : windows) {
        const ApplicationIdentity& identity = window.application;
        const auto place = places.constFind(identity.key);
        if (place == places.cend()) {
            places.insert(identity.key, applications.size());
            applications.push_back({ApplicationHandle{identity.key}, identity.name,
                                    identity.entryId, window.facts.processIdentifier,
                                    window.isHidden, window.facts.id == activeWindow});
        } else {
            RunningApplication& application = applications[*place];
            application.isHidden = application.isHidden && window.isHidden;
            application.isActive = application.isActive || window.facts.id == activeWindow;
        }
    }
    return applications;
}

std::optional<RunningApplication> Desk::application(const QString& key) const {
    const auto all = applications();
    const auto found = std::find_if(all.begin(), all.end(), [&](const RunningApplication& each) {
        return each.handle.key == key;
    });
    return found != all.end() ? std::optional(*found) : std::nullopt;
}

std::optional<RunningApplication> Desk::frontmost() const {
    const QString key = activeApplication();
    return key.isEmpty() ? std::nullopt : application(key);
}

std::vector<DeskWindow> Desk::windowsOf(const QString& key) const {
    std::vector<DeskWindow> found;
    std::copy_if(windows.begin(), windows.end(), std::back_inserter(found),
                 [&](const DeskWindow& window) { return window.application.key == key; });
    return found;
}

QString Desk::activeApplication() const {
    const auto active = std::find_if(windows.begin(), windows.end(), [&](const DeskWindow& window) {
        return window.facts.id == activeWindow;
    });
    return active != windows.end() ? active->application.key : QString();
}

} // namespace tolvar
