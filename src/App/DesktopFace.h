#pragma once

#include "App/MenuBar/MenuBarItem.h"
#include "Platform/Interfaces/BundleInfo.h"
#include "Sound/InterfaceSound.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Popover/PopoverVisibility.h"
#include "Views/Shared/ControlContext.h"
#include "Views/StatusPill/StatusPopups.h"

#include <QDBusConnection>
#include <QObject>
#include <QRect>

#include <functional>
#include <memory>
#include <optional>

namespace tolvar {

class AccessibilitySettings;
class CategoryStore;
class FocusManager;
class IconThemeSettings;
class InstalledApplications;
class PanelWindows;
class PointerPresses;
class PopoverWindow;
class Workspace;

/// What is seen of the program where there is a display: the status item and the popover with the
/// focus window in it.
class DesktopFace final : public QObject {
    Q_OBJECT

public:
    /// All outlive the face.
    struct Environment {
        ControlContext context;
        FocusManager& focusManager;
        CategoryStore& categories;
        Preferences& preferences;
        TimerService& timers;
        InterfaceSound& sound;
        const InstalledApplications& installed;
        const Workspace& workspace;
        PanelWindows& panels;
        /// Seconds, monotonic.
        std::function<double()> mediaTime;
        BundleInfo bundle;
        /// Need not be connected.
        QDBusConnection bus;
    };

    explicit DesktopFace(const Environment& environment);
    ~DesktopFace() override;

    /// Opens the popover, or brings it forward when it is open.
    void open();

Q_SIGNALS:
    /// An entry of the menu was chosen that is neither about the session nor about the popover.
    void chosen(tolvar::StatusCommand command);

private:
    void togglePopover(const std::optional<QPoint>& claimed);
    void perform(StatusCommand command);
    /// Made when it is first wanted: most of the time nobody looks.
    PopoverWindow& popover();
    QRect anchor(const std::optional<QPoint>& claimed) const;

    void followMotion();

    const Environment m_environment;
    std::unique_ptr<AccessibilitySettings> m_accessibility;
    Subscription m_accessibilitySubscription;
    std::unique_ptr<IconThemeSettings> m_iconTheme;
    std::unique_ptr<PointerPresses> m_presses;
    ApplicationIcons m_icons;
    PopoverVisibility m_visibility;
    InterfaceSound::Hold m_awakeSound;
    std::unique_ptr<PopoverWindow> m_popover;
    StatusPopups m_popups;
    std::unique_ptr<StatusItem> m_statusItem;
    MenuBarItem m_menuBarItem;
};

} // namespace tolvar
