#include "Platform/Linux/SystemTray/SystemTrayItem.h"

#include "Platform/Linux/SystemTray/TrayInk.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvar {

namespace {

using namespace std::chrono_literals;

/// Points; what a tray is thought to be before it says.
constexpr double usualThickness = 24;
/// Points that a tray may round away.
constexpr double slack = 1;
/// How long the pointer rests before the tooltip opens.
constexpr auto restBeforeToolTip = 600ms;
/// How long a tray may take to show the item before it is asked anew, and how often that is done: a
/// tray that has only just started may dock a window and forget to show itself.
constexpr auto patience = 2s;
constexpr int mostAttempts = 3;
/// How long a tray may take to give a size before it is reminded, and how often that is done: one
/// that is laying itself out may forget what it is asked meanwhile, and square ones never give it.
constexpr auto answerTime = 500ms;
constexpr int mostReminders = 3;

} // namespace

SystemTrayItem::SystemTrayItem(std::shared_ptr<TrayConnection> connection, const Options& options)
    : m_connection(std::move(connection))
    , m_options(options)
    , m_toldThickness(usualThickness) {
    m_content.length = iconOnlyLength();
    m_rest.setSingleShot(true);
    m_rest.setInterval(restBeforeToolTip);
    QObject::connect(&m_rest, &QTimer::timeout, &m_rest, [this] {
        m_isToolTipShown = true;
        showToolTip();
    });
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    QObject::connect(&m_patience, &QTimer::timeout, &m_patience, [this] { enterTray(); });
    m_answer.setSingleShot(true);
    m_answer.setInterval(answerTime);
    QObject::connect(&m_answer, &QTimer::timeout, &m_answer, [this] { remindOfSize(); });
    m_trays = m_connection->observe({.managerChanged = [this] { enterNewTray(); }});
    enterNewTray();
}

SystemTrayItem::~SystemTrayItem() {
    hover(false);
}

void SystemTrayItem::enterNewTray() {
    m_attempts = 0;
    enterTray();
}

/// Where there is none, it waits outside.
void SystemTrayItem::enterTray() {
    hover(false);
    m_window.reset();
    m_patience.stop();
    m_answer.stop();
    if (m_connection->manager() == XCB_NONE || m_attempts == mostAttempts)
        return;
    m_window = std::make_unique<TrayWindow>(
        m_connection, wantedSize(),
        TrayWindow::Observer{
            .exposed = [this] { measure(); },
            .moved = [this] { tellMovedSoon(); },
            .released = [this] { leaveTraySoon(); },
            .hovered = [this](bool isInside) { hover(isInside); },
            .clicked = [this](int button, QPoint place) { click(button, place); }});
    m_window->setName(m_content.accessibleLabel);
    m_offeredInk = m_window->offeredInk();
    if (++m_attempts < mostAttempts)
        m_patience.start();
    awaitSize();
}

void SystemTrayItem::awaitSize() {
    m_reminders = 0;
    m_answer.start();
}

void SystemTrayItem::remindOfSize() {
    const double missing = grantedSize().width() - m_content.length;
    if (!m_window || std::abs(missing) <= slack || m_reminders == mostReminders)
        return;
    ++m_reminders;
    m_window->askForSize(wantedSize());
    m_answer.start();
}

/// Not from within the window's own event. A tray that merely let go of it has it back then.
void SystemTrayItem::leaveTraySoon() {
    QMetaObject::invokeMethod(
        &m_rest, [this] { enterTray(); }, Qt::QueuedConnection);
}

/// A tray that lays itself out moves the window and all around it: that is one move.
void SystemTrayItem::tellMovedSoon() {
    if (std::exchange(m_isMoveUntold, true))
        return;
    QMetaObject::invokeMethod(
        &m_rest,
        [this] {
            m_isMoveUntold = false;
            m_observers.call(&Observer::moved);
        },
        Qt::QueuedConnection);
}

double SystemTrayItem::thickness() const {
    const QSizeF granted = grantedSize();
    return granted.isEmpty() ? usualThickness : std::min(granted.width(), granted.height());
}

QSizeF SystemTrayItem::grantedSize() const {
    return m_window ? QSizeF(m_window->size()) / m_options.scale : QSizeF();
}

int SystemTrayItem::iconOnlyLength() const {
    return static_cast<int>(std::lround(thickness()));
}

QSize SystemTrayItem::wantedSize() const {
    return {static_cast<int>(std::lround(m_content.length * m_options.scale)),
            static_cast<int>(std::lround(thickness() * m_options.scale))};
}

bool SystemTrayItem::hasRoomForLabel() const {
    return grantedSize().width() + slack >= m_content.length;
}

StatusItemContent SystemTrayItem::fitting() const {
    StatusItemContent content = m_content;
    content.isLabelHidden = content.isLabelHidden || !hasRoomForLabel();
    return content;
}

void SystemTrayItem::show(const StatusItemContent& content) {
    const StatusItemContent former = std::exchange(m_content, content);
    if (!m_window)
        return;
    if (content.length != former.length) {
        m_window->askForSize(wantedSize());
        awaitSize();
    }
    if (content.accessibleLabel != former.accessibleLabel)
        m_window->setName(content.accessibleLabel);
    if (content.toolTip != former.toolTip && m_isToolTipShown)
        showToolTip();
    if (content.label != former.label || content.isLabelHidden != former.isLabelHidden ||
        content.opacity != former.opacity)
        paint();
}

void SystemTrayItem::measure() {
    paint();
    if (std::exchange(m_toldThickness, thickness()) != thickness())
        m_observers.call(&Observer::measuresChanged);
}

void SystemTrayItem::paint() {
    QImage picture = m_window ? m_window->background() : QImage();
    if (picture.isNull())
        return;
    picture.setDevicePixelRatio(m_options.scale);
    QPainter painter(&picture);
    m_options.art.paint(painter, fitting(), grantedSize(),
                        trayInk(m_offeredInk, m_window->averageBackground()));
    painter.end();
    m_window->put(picture);
    m_patience.stop();
}

std::optional<QRect> SystemTrayItem::anchor() const {
    const auto window = m_window ? m_window->place() : std::nullopt;
    if (!window)
        return std::nullopt;
    const QRectF castle = m_options.art.iconPlace(fitting(), grantedSize());
    return QRect(window->topLeft() + (castle.topLeft() * m_options.scale).toPoint(),
                 (castle.size() * m_options.scale).toSize());
}

void SystemTrayItem::hover(bool isInside) {
    if (isInside)
        m_rest.start();
    else
        m_rest.stop();
    if (!isInside && std::exchange(m_isToolTipShown, false))
        m_options.popups.hideToolTip();
}

void SystemTrayItem::showToolTip() {
    if (const auto place = m_window ? m_window->place() : std::nullopt)
        m_options.popups.showToolTip(m_content.toolTip, *place);
}

void SystemTrayItem::click(int button, QPoint place) {
    hover(false);
    if (button == XCB_BUTTON_INDEX_1)
        m_observers.call(&Observer::clicked, std::optional(place));
    else if (button == XCB_BUTTON_INDEX_3)
        m_options.popups.showMenu(m_content.menu,
                                  m_window->place().value_or(QRect(place, QSize(1, 1))),
                                  [observers = m_observers](StatusCommand command) {
                                      observers.call(&Observer::chosen, command);
                                  });
}

} // namespace tolvar
