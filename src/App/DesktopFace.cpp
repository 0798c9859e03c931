#include "App/DesktopFace.h"

#include "App/Adapters.h"
#include "App/MenuBar/PopoverAnchor.h"
#include "App/StatusItems/StatusItems.h"
#include "Models/CategoryStore.h"
#include "Models/FocusManager.h"
#include "Motion/AnimationDriver.h"
#include "Platform/Interfaces/AccessibilitySettings.h"
#include "Platform/Interfaces/IconThemeSettings.h"
#include "Platform/Interfaces/PanelWindows.h"
#include "Platform/Interfaces/PointerPresses.h"
#include "Views/FocusWindow/FocusView.h"
#include "Views/Popover/PopoverWindow.h"
#include "Views/Shared/DevicePixels.h"

#include <QCursor>

namespace tolvar {

DesktopFace::DesktopFace(const Environment& environment)
    : m_environment(environment)
    , m_accessibility(Adapters::accessibilitySettings(environment.bus))
    , m_accessibilitySubscription(m_accessibility->observe([this] { followMotion(); }))
    , m_iconTheme(Adapters::iconThemeSettings())
    , m_presses(Adapters::pointerPresses())
    , m_icons({environment.installed, environment.workspace, *m_iconTheme})
    , m_statusItem(StatusItems::make({.bus = environment.bus,
                                      .bundle = environment.bundle,
                                      .preferences = environment.preferences,
                                      .timers = environment.timers,
                                      .motion = environment.context.motion,
                                      .popups = m_popups}))
    , m_menuBarItem({.focusManager = environment.focusManager,
                     .preferences = environment.preferences,
                     .timers = environment.timers,
                     .motion = environment.context.motion,
                     .item = *m_statusItem}) {
    followMotion();
    connect(&m_menuBarItem, &MenuBarItem::clicked, this, &DesktopFace::togglePopover);
    connect(&m_menuBarItem, &MenuBarItem::chosen, this, &DesktopFace::perform);
    connect(&m_menuBarItem, &MenuBarItem::moved, this, [this] {
        if (const auto castle = m_menuBarItem.anchor(); castle && m_popover)
            m_popover->follow(*castle);
    });
}

DesktopFace::~DesktopFace() = default;

/// As much motion as the user of this desktop wants.
void DesktopFace::followMotion() {
    AnimationDriver& motion = m_environment.context.motion;
    MotionSettings settings = motion.settings();
    settings.isReduced = m_accessibility->reducesMotion();
    motion.setSettings(settings);
}

PopoverWindow& DesktopFace::popover() {
    if (m_popover)
        return *m_popover;
    auto* content = new FocusView({.context = m_environment.context,
                                   .timers = m_environment.timers,
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

QRect DesktopFace::anchor(const std::optional<QPoint>& claimed) const {
    const QPoint pointer = DevicePixels::fromPoints({QCursor::pos(), QSize(1, 1)}).topLeft();
    return popoverAnchor(m_menuBarItem.anchor(), claimed, pointer);
}

void DesktopFace::open() {
    popover().open(anchor(std::nullopt));
}

void DesktopFace::togglePopover(const std::optional<QPoint>& claimed) {
    popover().toggle(anchor(claimed));
}

void DesktopFace::perform(StatusCommand command) {
    if (command == StatusCommand::open)
        open();
    else
        Q_EMIT chosen(command);
}

} // namespace tolvar
