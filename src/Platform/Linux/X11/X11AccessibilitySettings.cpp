#include "Platform/Linux/X11/X11AccessibilitySettings.h"

#include "Platform/Linux/X11/XSettings.h"
#include "Platform/Linux/X11/XSettingsWatch.h"

#include <utility>

namespace tolvar {

X11AccessibilitySettings::X11AccessibilitySettings(std::unique_ptr<XConnection> connection)
    : m_settings(std::make_unique<XSettingsWatch>(std::move(connection), [this] { update(); }))
    , m_reducesMotion(isMotionUnwanted()) {}

X11AccessibilitySettings::~X11AccessibilitySettings() = default;

std::unique_ptr<X11AccessibilitySettings> X11AccessibilitySettings::create() {
    auto connection = XConnection::open();
    if (!connection)
        return nullptr;
    return std::unique_ptr<X11AccessibilitySettings>(
        new X11AccessibilitySettings(std::move(connection)));
}

Subscription X11AccessibilitySettings::observe(std::function<void()> changed) {
    return m_observers.add(std::move(changed));
}

bool X11AccessibilitySettings::isMotionUnwanted() const {
    return xSettingsNumber(m_settings->settings(), "Gtk/EnableAnimations") == 0;
}

void X11AccessibilitySettings::update() {
    const bool isUnwanted = isMotionUnwanted();
    if (std::exchange(m_reducesMotion, isUnwanted) != isUnwanted)
        m_observers.tell();
}

} // namespace tolvar
