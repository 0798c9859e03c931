#include "App/DesktopFace.h"

#include "App/Adapters.h"
#include "Models/CategoryStore.h"
#include "Models/FocusManager.h"
#include "Platform/Interfaces/IconThemeSettings.h"
#include "Platform/Interfaces/PanelWindows.h"
#include "Platform/Interfaces/PointerPresses.h"
#include "Views/FocusWindow/FocusView.h"
#include "Views/Popover/PopoverWindow.h"

namespace tolvar {

DesktopFace::DesktopFace(const Environment& environment)
    : m_environment(environment)
    , m_iconTheme(Adapters::iconThemeSettings())
    , m_presses(Adapters::pointerPresses())
    , m_icons({environment.installed, environment.workspace, *m_iconTheme}) {}

DesktopFace::~DesktopFace() = default;

PopoverWindow& DesktopFace::popover() {
    if (m_popover)
        return *m_popover;
    auto* content = new FocusView({.context = m_environment.context,
                                   .focusManager = m_environment.focusManager,
                                   .categoryStore = m_environment.categories,
                                   .installed = m_environment.installed,
                                   .workspace = m_environment.workspace,
                                   .icons = m_icons,
                                   .ownName = m_environment.bundle.name});
    m_popover = std::make_unique<PopoverWindow>(
        PopoverWindow::Environment{.panels = m_environment.panels,
                                   .presses = *m_presses,
                                   .mediaTime = m_environment.mediaTime},
        content);
    connect(m_popover.get(), &PopoverWindow::willShow, this,
            [this] { m_visibility.setShown(true); });
    connect(m_popover.get(), &PopoverWindow::didShow, this, [this, content] {
        m_awakeSound = m_environment.sound.stayAwake();
        content->takeKeyboard(Qt::ActiveWindowFocusReason);
    });
    connect(m_popover.get(), &PopoverWindow::didClose, this, [this] {
        m_awakeSound.reset();
        m_visibility.setShown(false);
    });
    return *m_popover;
}

std::optional<QRect> DesktopFace::anchor() const {
    return std::nullopt;
}

void DesktopFace::open() {
    popover().open(anchor());
}

void DesktopFace::togglePopover() {
    popover().toggle(anchor());
}

} // namespace tolvar
