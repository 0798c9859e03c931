#include "Views/Popover/PopoverWindow.h"

#include "Platform/Interfaces/PanelWindows.h"
#include "Platform/Interfaces/PointerPresses.h"
#include "Views/Paint/Paint.h"
#include "Views/Popover/PopoverPlacement.h"
#include "Views/Theme/Instrument.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

/// Between the popover and its anchor, and the edges of the screen.
constexpr int gap = 4;

constexpr PanelTraits traits =
    PanelTrait::onEveryDesktop | PanelTrait::outOfTaskbar | PanelTrait::aboveOthers;

/// The screen's part of the desktop in device pixels.
QRect pixels(const QScreen& screen) {
    const QRect points = screen.geometry();
    return {points.topLeft(), (QSizeF(points.size()) * screen.devicePixelRatio()).toSize()};
}

QScreen* screenAt(const QPoint& position) {
    for (QScreen* screen : QGuiApplication::screens())
        if (pixels(*screen).contains(position))
            return screen;
    return QGuiApplication::primaryScreen();
}

QPoint toPixels(const QPoint& point, const QScreen& screen) {
    const QPoint origin = screen.geometry().topLeft();
    return origin + (QPointF(point - origin) * screen.devicePixelRatio()).toPoint();
}

QRect toPoints(const QRect& pixels, const QScreen& screen) {
    const QPoint origin = screen.geometry().topLeft();
    const double scale = screen.devicePixelRatio();
    return QRectF(origin + QPointF(pixels.topLeft() - origin) / scale,
                  QSizeF(pixels.size()) / scale)
        .toAlignedRect();
}

/// A window's place on the desktop in device pixels.
QRect pixels(const QWidget& window) {
    const QScreen& screen = *window.screen();
    return {toPixels(window.geometry().topLeft(), screen),
            (QSizeF(window.size()) * screen.devicePixelRatio()).toSize()};
}

/// Menus and tooltips of ours count too.
bool isOurs(const QPoint& position) {
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && pixels(*window).contains(position))
            return true;
    return false;
}

} // namespace

PopoverWindow::PopoverWindow(const Environment& environment, QWidget* content)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_environment(environment)
    , m_content(content) {
    setWindowTitle(u"Tolvar"_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(content);
    setFixedSize(content->sizeHint());
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
        winId();
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

void PopoverWindow::place() {
    QScreen* screen =
        m_anchor ? screenAt(m_anchor->center()) : QGuiApplication::screenAt(QCursor::pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect anchor =
        m_anchor ? toPoints(*m_anchor, *screen) : QRect(QCursor::pos(), QSize(1, 1));
    windowHandle()->setScreen(screen);
    move(placePopover(anchor, size(), screen->availableGeometry(), gap).topLeft());
}

/// A press on the item itself is left to the click that comes of it.
void PopoverWindow::pressed(const QPoint& position) {
    if (isOurs(position) || (m_anchor && m_anchor->contains(position)))
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
    return QWidget::event(event);
}

void PopoverWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        QWidget::keyPressEvent(event);
}

void PopoverWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Instrument::Palette::panel);
}

void PopoverWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    m_presses =
        m_environment.presses.observe([this](const QPoint& position) { pressed(position); });
    Q_EMIT didShow();
}

void PopoverWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (event->spontaneous())
        return;
    m_presses.reset();
    Q_EMIT didClose();
}

} // namespace tolvar
