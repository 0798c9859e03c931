#include "Views/Shared/SwipeActionsContainer.h"

#include "Views/Shared/ActionMenu.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/KeyReveal.h"
#include "Views/Shared/SwipeActionsFace.h"
#include "Views/Shared/SwipeLayers.h"
#include "Views/Shared/WindowPoint.h"
#include "Views/Theme/Instrument.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

/// A row that is less than this many points aside, as while its spring comes to rest, hides its
/// keys.
constexpr double reallyAside = 0.5;
constexpr double symbolSize = 17;
/// How much of an action's tint its key has.
constexpr double tintOfFace = 0.1;

KeyStyle keyStyle(const SwipeAction& action, double radius) {
    KeyStyle style = KeyStyle::card();
    const QColor tint = action.tint.isValid() ? action.tint : style.ink;
    for (auto& stop : style.bevel.face)
        stop.color = mixedColor(stop.color, tint, tintOfFace);
    style.ink = style.latchedInk = tint;
    style.radius = radius;
    style.padding = {};
    style.symbolSize = symbolSize;
    style.spacing = 0;
    return style;
}

bool looksLike(const SwipeAction& first, const SwipeAction& second) {
    return first.title == second.title && first.symbol == second.symbol &&
           first.tint == second.tint;
}

bool takesTabByItself(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

bool isMenuKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Menu ||
           (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

bool isWithoutModifiers(const QKeyEvent& event) {
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

/// Keys that a list goes from row to row by.
bool isForList(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End;
}

} // namespace

SwipeActionsContainer::SwipeActionsContainer(const ControlContext& context, TimerService& timers,
                                             const Style& style, QWidget* content, QWidget* parent)
    : QWidget(parent)
    , m_context(context)
    , m_style(style)
    , m_content(content)
    , m_closingLayer(new ClosingLayer([this] { snap(false); }, this))
    , m_slideFade(new SlideFade(this))
    , m_rest(context.motion, 0, [this] { place(); })
    , m_drag(*this, Qt::Horizontal,
             {.moved = [this](const QPointF& way) { dragTo(way); },
              .ended = [this] { letGo(); },
              .cancelled = [this] { breakOff(); }})
    , m_scroll(timers, {.changed = [this](double delta) { scrollBy(delta); },
                        .ended = [this] { letGo(); }}) {
    SwipeActionsFace::install();
    setFocusPolicy(Qt::StrongFocus);
    content->setParent(this);
    for (QWidget* part : content->findChildren<QWidget*>())
        part->installEventFilter(this);
    content->show();
    place();
}

SwipeActionsContainer::~SwipeActionsContainer() = default;

void SwipeActionsContainer::setActions(std::vector<SwipeAction> actions) {
    const bool isSame = std::ranges::equal(m_actions, actions, looksLike);
    if (m_menu && (!isSame || !std::ranges::equal(m_actions, actions, {}, &SwipeAction::isEnabled,
                                                  &SwipeAction::isEnabled)))
        m_menu->close();
    m_actions = std::move(actions);
    if (!isSame)
        makeKeys();
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        if (!m_actions[i].isEnabled)
            keepFocusOff(*m_keys[i]);
        m_keys[i]->setEnabled(m_actions[i].isEnabled);
    }
    m_gesture.setOpenWidth(static_cast<double>(m_keys.size()) * (m_style.keySize + m_style.gap));
    if (m_gesture.openWidth() == 0)
        m_gesture.setOpen(false);
    if (!m_drag.isDragging() && !m_scroll.isSwiping())
        m_rest.animateTo(m_gesture.base(), Instrument::Motion::swipeSettle);
    place();
}

/// Keys that differ in looks are made anew, those that stay keep the keyboard.
void SwipeActionsContainer::makeKeys() {
    const auto focused = std::ranges::find_if(m_keys, &QWidget::hasFocus);
    const auto index = static_cast<std::size_t>(focused - m_keys.begin());
    const bool keepsFocus = index < m_keys.size() && index < m_actions.size() &&
                            m_actions[index].title == m_keys[index]->name();
    for (KeyButton* key : m_keys) {
        keepFocusOff(*key);
        key->hide();
        key->deleteLater();
    }
    m_keys.clear();
    for (const SwipeAction& action : m_actions)
        addKey(action);
    m_content->raise();
    m_closingLayer->raise();
    m_slideFade->raise();
    if (!m_takesTab) {
        setTakesTab(true);
        setTakesTab(false);
    }
    place();
    if (keepsFocus)
        m_keys[index]->setFocus(Qt::OtherFocusReason);
}

void SwipeActionsContainer::addKey(const SwipeAction& action) {
    auto* key = new KeyButton(m_context, keyStyle(action, m_style.radius), action.title, this);
    key->setSymbol(action.symbol);
    key->setShowsText(false);
    key->setToolTip(action.title);
    key->hide();
    key->installEventFilter(this);
    new KeyReveal(*key);
    setTabOrder(tabParts().back(), key);
    const int index = static_cast<int>(m_keys.size());
    connect(key, &KeyButton::clicked, this, [this, index] { perform(index); });
    m_keys.push_back(key);
}

/// The action may set others, or destroy the row.
void SwipeActionsContainer::perform(int action) {
    const auto index = static_cast<std::size_t>(action);
    if (action < 0 || index >= m_actions.size() || !m_actions[index].isEnabled)
        return;
    if (const auto act = m_actions[index].action)
        act();
}

double SwipeActionsContainer::inDirection(double length) const {
    return layoutDirection() == Qt::RightToLeft ? -length : length;
}

double SwipeActionsContainer::offset() const {
    return m_rest.value() + m_gesture.offset() - m_gesture.base();
}

bool SwipeActionsContainer::isBusy() const {
    return m_drag.isDragging() || m_scroll.isSwiping() || m_menu;
}

void SwipeActionsContainer::setOpen(bool open, Motion motion) {
    const double from = offset();
    m_drag.cancel();
    m_scroll.cancel();
    const bool wasHeld = from != m_rest.value();
    m_gesture.setOpen(open);
    if (wasHeld)
        m_rest.jumpTo(from);
    if (motion == Motion::animated && isVisible())
        m_rest.animateTo(m_gesture.base(), Instrument::Motion::swipeSettle);
    else
        m_rest.jumpTo(m_gesture.base());
    place();
}

void SwipeActionsContainer::endInteraction() {
    if (m_menu)
        m_menu->close();
    setOpen(isOpen());
}

void SwipeActionsContainer::rest() {
    endInteraction();
    setOpen(false, Motion::atOnce);
}

void SwipeActionsContainer::snap(bool open) {
    setOpen(open);
    Q_EMIT openChanged(open);
}

/// Only while it goes more sideways than up or down.
void SwipeActionsContainer::dragTo(const QPointF& way) {
    if (std::abs(way.x()) <= std::abs(way.y()))
        return;
    m_gesture.dragTo(inDirection(way.x()));
    place();
}

void SwipeActionsContainer::scrollBy(double delta) {
    m_gesture.scrollBy(inDirection(delta));
    place();
}

void SwipeActionsContainer::letGo() {
    const double from = offset();
    const bool wasOpen = isOpen();
    m_gesture.settle();
    m_rest.jumpTo(from);
    m_rest.animateTo(m_gesture.base(), Instrument::Motion::swipeSettle);
    place();
    if (isOpen() != wasOpen)
        Q_EMIT openChanged(isOpen());
}

void SwipeActionsContainer::breakOff() {
    const double from = offset();
    m_gesture.setOpen(isOpen());
    m_rest.jumpTo(from);
    m_rest.animateTo(m_gesture.base(), Instrument::Motion::swipeSettle);
    place();
}

void SwipeActionsContainer::place() {
    const QPoint aside(qRound(inDirection(offset())), 0);
    m_content->setGeometry(rect().translated(aside));
    m_closingLayer->setGeometry(m_content->geometry());
    m_closingLayer->setVisible(isOpen());
    const double progress = m_gesture.revealProgress(offset());
    const int veil = SlideFade::width;
    m_slideFade->setGeometry(layoutDirection() == Qt::RightToLeft ? width() - veil : 0, 0, veil,
                             height());
    m_slideFade->setAmount(m_style.fadesAsItSlides ? progress : 0);
    placeKeys(progress);
}

void SwipeActionsContainer::placeKeys(double progress) {
    const bool isAside = offset() < -reallyAside;
    int left = width() - static_cast<int>(m_gesture.openWidth());
    for (KeyButton* key : m_keys) {
        left += m_style.gap;
        QRect place(left, (height() - m_style.keySize) / 2, m_style.keySize, m_style.keySize);
        if (layoutDirection() == Qt::RightToLeft)
            place.moveRight(width() - 1 - place.left());
        key->setGeometry(place);
        left += m_style.keySize;
        if (!isAside)
            keepFocusOff(*key);
        key->setVisible(isAside);
        static_cast<KeyReveal*>(key->graphicsEffect())->setProgress(progress);
    }
}

/// Qt would give the keyboard to whatever is next.
void SwipeActionsContainer::keepFocusOff(const QWidget& leaving) {
    if (leaving.hasFocus())
        setFocus(Qt::OtherFocusReason);
}

void SwipeActionsContainer::setTakesTab(bool takes) {
    if (std::exchange(m_takesTab, takes) == takes)
        return;
    setFocusPolicy(takes ? Qt::StrongFocus : Qt::ClickFocus);
    for (const auto& [part, policy] : std::exchange(m_withheld, {}))
        if (part)
            part->setFocusPolicy(policy);
    if (takes)
        return;
    for (QWidget* part : findChildren<QWidget*>())
        if (takesTabByItself(*part)) {
            m_withheld.emplace_back(part, part->focusPolicy());
            part->setFocusPolicy(part->focusPolicy() & Qt::ClickFocus ? Qt::ClickFocus
                                                                      : Qt::NoFocus);
        }
}

std::vector<QWidget*> SwipeActionsContainer::tabParts() {
    std::vector<QWidget*> parts{this};
    for (QWidget* part : m_content->findChildren<QWidget*>())
        if (part->focusPolicy() != Qt::NoFocus)
            parts.push_back(part);
    parts.insert(parts.end(), m_keys.begin(), m_keys.end());
    return parts;
}

std::vector<QWidget*> SwipeActionsContainer::tabStops() {
    std::vector<QWidget*> stops = tabParts();
    std::erase_if(stops, [this](const QWidget* part) {
        return part != this &&
               (!takesTabByItself(*part) || !part->isVisible() || !part->isEnabled());
    });
    return stops;
}

void SwipeActionsContainer::openMenu(const QPoint& position) {
    if (m_menu)
        return;
    m_drag.cancel();
    m_menu = makeActionMenu(m_actions, m_commonActions, *this);
    if (m_menu)
        m_menu->popup(position);
}

QSize SwipeActionsContainer::sizeHint() const {
    return m_content->sizeHint();
}

QRectF SwipeActionsContainer::focusRim() const {
    return m_content->geometry() & rect();
}

/// What stands on the card keeps its own keys, but for those of the list.
bool SwipeActionsContainer::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_window)
        return event->type() == QEvent::Wheel && takeScroll(static_cast<QWheelEvent&>(*event));
    if (event->type() != QEvent::KeyPress || !isForList(static_cast<QKeyEvent*>(event)->key()))
        return QWidget::eventFilter(watched, event);
    QCoreApplication::sendEvent(this, event);
    return true;
}

bool SwipeActionsContainer::takeScroll(const QWheelEvent& event) {
    ScrollStep step = m_wheel.read(event);
    step.isInside = widgetAt(*this, event.position()) != nullptr;
    return m_scroll.take(step) == ScrollSwipeTracker::Verdict::swallow;
}

void SwipeActionsContainer::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    watchScrolling(window()->windowHandle());
}

void SwipeActionsContainer::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    watchScrolling(nullptr);
    endInteraction();
    setOpen(isOpen(), Motion::atOnce);
}

void SwipeActionsContainer::watchScrolling(QWindow* window) {
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (window)
        window->installEventFilter(this);
}

void SwipeActionsContainer::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void SwipeActionsContainer::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        place();
}

void SwipeActionsContainer::keyPressEvent(QKeyEvent* event) {
    if (isMenuKey(*event))
        openMenuByKey();
    else if (event->key() == Qt::Key_Delete && isWithoutModifiers(*event) && !event->isAutoRepeat())
        Q_EMIT deleteRequested();
    else if (event->key() == Qt::Key_Escape && isOpen())
        snap(false);
    else
        event->ignore();
}

void SwipeActionsContainer::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        openMenuByKey();
    else
        openMenu(event->globalPos());
}

/// The keyboard begins on its first line, unless Return would destroy something there.
void SwipeActionsContainer::openMenuByKey() {
    openMenu(mapToGlobal(rect().center()));
    const bool isHarmless = !m_actions.empty() && !m_actions.front().isDestructive;
    if (m_menu && !m_menu->activeAction() && isHarmless)
        m_menu->setActiveAction(m_menu->actions().front());
}

} // namespace tolvar
