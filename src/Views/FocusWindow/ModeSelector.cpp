#include "Views/FocusWindow/ModeSelector.h"

#include "Views/FocusWindow/ModeButton.h"
#include "Views/Paint/Paint.h"
#include "Views/Theme/Feedback.h"

#include <QAccessibleWidget>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace tolvar {

namespace {

struct Look {
    int height = 48;
    double radius = 11;
};
constexpr Look look;

const Spring fast = Spring::withResponse(0.26, 0.7);
const Spring slow = Spring::withResponse(0.48, 0.62);
const Eased plain{0.2, Easing::easeInOut()};

int slotOf(FocusTab tab) {
    const auto* place = std::find(allFocusTabs.begin(), allFocusTabs.end(), tab);
    return static_cast<int>(place - allFocusTabs.begin());
}

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* selector = qobject_cast<ModeSelector*>(object);
    return selector ? new QAccessibleWidget(selector, QAccessible::PageTabList) : nullptr;
}

} // namespace

ModeSelector::ModeSelector(const ControlContext& context, FocusTab selection, QWidget* parent)
    : QWidget(parent)
    , m_context(context)
    , m_selection(selection)
    , m_leadingEdge(context.motion, slotOf(selection), [this] { update(); })
    , m_trailingEdge(context.motion, slotOf(selection), [this] { update(); }) {
    QAccessible::installFactory(faceOf);
    setFixedHeight(look.height);
    for (const FocusTab tab : allFocusTabs) {
        auto* button = new ModeButton(context, tab, this);
        button->setSelected(tab == selection);
        connect(button, &ModeButton::clicked, this, [this, tab] { select(tab); });
        m_buttons.push_back(button);
    }
}

void ModeSelector::setSelection(FocusTab tab) {
    const FocusTab before = std::exchange(m_selection, tab);
    if (before == tab)
        return;
    for (ModeButton* button : m_buttons)
        button->setSelected(button->tab() == tab);
    flyIndicator(before, tab);
}

QSize ModeSelector::sizeHint() const {
    return {look.height * static_cast<int>(m_buttons.size()), look.height};
}

void ModeSelector::select(FocusTab tab) {
    if (tab == m_selection)
        return;
    m_context.feedback.modeSwitched();
    setSelection(tab);
    Q_EMIT selected(tab);
}

void ModeSelector::selectNeighbour(int step) {
    const int last = static_cast<int>(m_buttons.size()) - 1;
    ModeButton* next = m_buttons.at(std::clamp(slotOf(m_selection) + step, 0, last));
    select(next->tab());
    next->setFocus(Qt::TabFocusReason);
}

void ModeSelector::keyPressEvent(QKeyEvent* event) {
    const int onward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    if (event->key() == Qt::Key_Right)
        selectNeighbour(onward);
    else if (event->key() == Qt::Key_Left)
        selectNeighbour(-onward);
    else
        QWidget::keyPressEvent(event);
}

/// With reduced motion it glides over as a whole.
void ModeSelector::flyIndicator(FocusTab from, FocusTab to) {
    const int target = slotOf(to);
    if (m_context.motion.settings().isReduced) {
        const AnimationOptions calm{.underReducedMotion = UnderReducedMotion::Play};
        m_leadingEdge.animateTo(target, plain, calm);
        m_trailingEdge.animateTo(target, plain, calm);
    } else {
        const bool isOnward = target > slotOf(from);
        m_leadingEdge.animateTo(target, isOnward ? slow : fast);
        m_trailingEdge.animateTo(target, isOnward ? fast : slow);
    }
    if (!isVisible()) {
        m_leadingEdge.finish();
        m_trailingEdge.finish();
    }
}

SlotGeometry ModeSelector::geometry() const {
    return {.totalWidth = static_cast<double>(width()),
            .count = static_cast<int>(m_buttons.size())};
}

QRectF ModeSelector::placed(const QRectF& fromTheLeft) const {
    QRectF rect = fromTheLeft;
    if (layoutDirection() == Qt::RightToLeft)
        rect.moveRight(width() - fromTheLeft.left());
    return rect;
}

void ModeSelector::resizeEvent(QResizeEvent*) {
    placeButtons();
}

void ModeSelector::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        placeButtons();
}

void ModeSelector::placeButtons() {
    for (ModeButton* button : m_buttons)
        button->setGeometry(placed(geometry().slot(slotOf(button->tab()), height())).toRect());
}

void ModeSelector::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_leadingEdge.finish();
    m_trailingEdge.finish();
}

void ModeSelector::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const SlotGeometry places = geometry();
    Paint::bevel(painter, rect(), look.radius, Bevel::well);
    const QRectF highlight =
        placed(places.highlight(m_leadingEdge.value(), m_trailingEdge.value(), height()));
    Paint::bevel(painter, highlight, look.radius - places.inset, Bevel::modeIndicator);
}

} // namespace tolvar
