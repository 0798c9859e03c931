#include "Views/Popover/PopoverWindow.h"

#include "Platform/Interfaces/PanelWindows.h"
#include "Platform/Interfaces/PointerPresses.h"
#include "Views/Popover/PopoverPlacement.h"
#include "Views/Shared/DevicePixels.h"

#include <QApplication>
#include <QCursor>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScreen>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

/// Between the popover and its anchor, and the edges of the screen.
constexpr int gap = 4;

constexpr PanelTraits traits = PanelTraits(PanelTrait::onEveryDesktop) | PanelTrait::outOfTaskbar |
                               PanelTrait::aboveOthers | PanelTrait::ownShadow;

/// The window's own part of the desktop, in device pixels, without the shadow around it.
QRect placeOf(const QWidget& window) {
    const auto* panel = qobject_cast<const FloatingPanel*>(&window);
    const QRect own = panel ? panel->card() : window.rect();
    return DevicePixels::fromPoints(own.translated(window.pos()));
}

/// Menus and tooltips of ours count too.
bool isOurs(const QPoint& position) {
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && placeOf(*window).contains(position))
            return true;
    return false;
}

} // namespace

PopoverWindow::PopoverWindow(const Environment& environment, QWidget* content)
    : FloatingPanel(content,
                    environment.panels.showsTranslucency() ? Surroundings::shadow
                                                           : Surroundings::none,
                    Corners::square)
    , m_environment(environment) {
    setWindowTitle(u"Tolvar"_s);
}

void PopoverWindow::toggle(const std::optional<QRect>& anchor) {
    if (isVisible())
        hide();
    else if (!m_closingPress.takeClick(QCursor::pos(), m_environment.mediaTime()))
        open(anchor);
}

void PopoverWindow::open(const std::optional<QRect>& anchor) {
    if (!isVisible()) {
        m_anchor = anchor;
        Q_EMIT willShow();
        place();
        m_environment.panels.setTraits(winId(), traits);
        show();
    }
    m_environment.panels.activate(winId());
}

void PopoverWindow::follow(const QRect& anchor) {
    m_anchor = anchor;
    if (isVisible())
        place();
}

/// The toolkit knows the room that panels leave on a desktop of one screen alone.
QRect PopoverWindow::roomOn(const QScreen& screen) const {
    const QRect pixels = DevicePixels::fromPoints(screen.geometry());
    return screen.availableGeometry() &
           DevicePixels::toPoints(m_environment.panels.freeArea(pixels));
}

void PopoverWindow::place() {
    const QRect anchor =
        m_anchor ? DevicePixels::toPoints(*m_anchor) : QRect(QCursor::pos(), QSize(1, 1));
    QScreen* screen = QGuiApplication::screenAt(anchor.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    setScreen(screen);
    const QRect room = roomOn(*screen);
    limitHeight(room.height() - 2 * gap);
    standAt(placePopover(anchor, card().size(), room, gap).topLeft() - card().topLeft());
}

bool PopoverWindow::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::InputMethod)
        m_isComposing = !static_cast<QInputMethodEvent*>(event)->preeditString().isEmpty();
    return false;
}

/// A press on the item itself is left to the click that comes of it. The window in which an input
/// method offers what to write is its own.
void PopoverWindow::pressed(const QPoint& position) {
    if (m_isComposing || isOurs(position) || (m_anchor && m_anchor->contains(position)))
        return;
    m_closingPress.note(QCursor::pos(), m_environment.mediaTime());
    hide();
}

void PopoverWindow::closeUnlessOurs() {
    if (isVisible() && !QApplication::activeWindow())
        hide();
}

/// Which window comes next is known only after this one has been left.
bool PopoverWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate)
        QMetaObject::invokeMethod(this, &PopoverWindow::closeUnlessOurs, Qt::QueuedConnection);
    return FloatingPanel::event(event);
}

void PopoverWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        FloatingPanel::keyPressEvent(event);
}

void PopoverWindow::showEvent(QShowEvent* event) {
    FloatingPanel::showEvent(event);
    if (event->spontaneous())
        return;
    m_isComposing = false;
    qApp->installEventFilter(this);
    m_presses =
        m_environment.presses.observe([this](const QPoint& position) { pressed(position); });
    Q_EMIT didShow();
}

void PopoverWindow::hideEvent(QHideEvent* event) {
    FloatingPanel::hideEvent(event);
    if (event->spontaneous())
        return;
    m_presses.reset();
    qApp->removeEventFilter(this);
    Q_EMIT didClose();
}

} // namespace tolvar
