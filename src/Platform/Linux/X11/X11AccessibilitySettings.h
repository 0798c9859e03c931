#pragma once

#include "Extensions/ObserverList.h"
#include "Platform/Interfaces/AccessibilitySettings.h"

#include <memory>

namespace tolvar {

class XConnection;
class XSettingsWatch;

/// The user's wishes as the desktop's settings manager tells all programs: motion is reduced when
/// Gtk/EnableAnimations is 0. A value that is absent or no number asks for nothing. What was last
/// said stands while there is no manager.
class X11AccessibilitySettings final : public AccessibilitySettings {
public:
    /// Connects to the X server of this session; null when there is none.
    static std::unique_ptr<X11AccessibilitySettings> create();
    ~X11AccessibilitySettings() override;

    bool reducesMotion() const override { return m_reducesMotion; }
    /// `changed` does not destroy this object.
    Subscription observe(std::function<void()> changed) override;

private:
    explicit X11AccessibilitySettings(std::unique_ptr<XConnection> connection);
    bool isMotionUnwanted() const;
    void update();

    ObserverList<std::function<void()>> m_observers;
    std::unique_ptr<XSettingsWatch> m_settings;
    bool m_reducesMotion = false;
};

} // namespace tolvar
