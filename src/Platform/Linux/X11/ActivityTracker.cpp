#include "Platform/Linux/X11/ActivityTracker.h"

#include <xcb/xcb_icccm.h>

#include <algorithm>

namespace tolvar {

namespace {

/// Our mark proves that the windows were here before, even if the client list lost them while one
/// window manager took over from another.
bool wasHiddenByUs(const Desk& desk, const QString& key) {
    const auto windows = desk.windowsOf(key);
    return std::all_of(windows.begin(), windows.end(), [](const DeskWindow& window) {
        return window.isHidden && window.state.mark;
    });
}

} // namespace

void ActivityTracker::begin(const Desk& desk) {
    m_expectedHidden.clear();
    m_applications = hiddenness(desk);
    m_active = desk.activeApplication();
}

std::vector<Activity> ActivityTracker::update(const Desk& desk, Focus focus) {
    forgetFulfilledExpectations(desk);
    const Hiddenness now = hiddenness(desk);
    const QString active = desk.activeApplication();
    std::vector<Activity> activities;
    for (const RunningApplication& application : desk.applications()) {
        const QString& key = application.handle.key;
        const auto before = m_applications.find(key);
        const bool isNew = before == m_applications.end() && !wasHiddenByUs(desk, key);
        const bool wasHidden = before != m_applications.end() && before->second;
        const bool showsAgain = wasHidden && !now.at(key);
        const bool tookFocus =
            key == active && (active != m_active || (focus == Focus::moved && wasHidden));
        if (isNew)
            activities.push_back({Activity::Kind::launched, application});
        else if (showsAgain || tookFocus)
            activities.push_back({Activity::Kind::activated, application});
    }
    m_applications = now;
    m_active = active;
    return activities;
}

void ActivityTracker::noteHidden(const QString& key, const std::vector<WindowId>& stillShown) {
    m_applications[key] = true;
    m_expectedHidden.insert(stillShown.begin(), stillShown.end());
}

void ActivityTracker::noteShown(const QString& key, const std::vector<WindowId>& windows) {
    m_applications[key] = false;
    for (const WindowId window : windows)
        m_expectedHidden.erase(window);
}

/// A window on a workspace that nobody looks at cannot be hidden any further.
bool ActivityTracker::isDueToHide(const DeskWindow& window) const {
    return m_expectedHidden.contains(window.facts.id) && !window.isHidden &&
           window.state.icccmState != XCB_ICCCM_WM_STATE_ICONIC;
}

bool ActivityTracker::isPatient(const Desk& desk) const {
    return std::any_of(desk.windows.begin(), desk.windows.end(),
                       [this](const DeskWindow& window) { return isDueToHide(window); });
}

void ActivityTracker::endPatience(const Desk& desk) {
    for (const DeskWindow& window : desk.windows)
        if (isDueToHide(window))
            m_expectedHidden.erase(window.facts.id);
}

void ActivityTracker::forgetFulfilledExpectations(const Desk& desk) {
    std::set<WindowId> stillExpected;
    for (const DeskWindow& window : desk.windows)
        if (!window.isHidden && m_expectedHidden.contains(window.facts.id))
            stillExpected.insert(window.facts.id);
    m_expectedHidden = std::move(stillExpected);
}

ActivityTracker::Hiddenness ActivityTracker::hiddenness(const Desk& desk) const {
    Hiddenness applications;
    for (const DeskWindow& window : desk.windows) {
        const bool isHidden = window.isHidden || m_expectedHidden.contains(window.facts.id);
        const auto [place, isFirst] = applications.emplace(window.application.key, isHidden);
        if (!isFirst)
            place->second = place->second && isHidden;
    }
    return applications;
}

} // namespace tolvar
