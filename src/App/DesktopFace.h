#pragma once

#include "Platform/Interfaces/BundleInfo.h"
#include "Sound/InterfaceSound.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Popover/PopoverVisibility.h"
#include "Views/Shared/ControlContext.h"

#include <QObject>
#include <QRect>

#include <functional>
#include <memory>
#include <optional>

namespace tolvar {

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
        InterfaceSound& sound;
        const InstalledApplications& installed;
        const Workspace& workspace;
        PanelWindows& panels;
        /// Seconds, monotonic.
        std::function<double()> mediaTime;
        BundleInfo bundle;
    };

    explicit DesktopFace(const Environment& environment);
    ~DesktopFace() override;

    /// Opens the popover, or brings it forward when it is open.
    void open();

private:
    void togglePopover();
    /// Made when it is first wanted: most of the time nobody looks.
    PopoverWindow& popover();
    std::optional<QRect> anchor() const;

    const Environment m_environment;
    std::unique_ptr<IconThemeSettings> m_iconTheme;
    std::unique_ptr<PointerPresses> m_presses;
    ApplicationIcons m_icons;
    PopoverVisibility m_visibility;
    InterfaceSound::Hold m_awakeSound;
    std::unique_ptr<PopoverWindow> m_popover;
};

} // namespace tolvar
