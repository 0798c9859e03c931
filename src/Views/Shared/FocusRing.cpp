#include "Views/Shared/FocusRing.h"

#include "Views/Paint/Paint.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFocusEvent>

#include <cmath>
#include <optional>

namespace tolvar {

namespace {

/// Room for the ring's own line.
constexpr int margin = 2;
constexpr double plainRadius = 4;

/// How far the ring reaches beyond the rim.
int reach() {
    return static_cast<int>(std::ceil(FocusRing::outset)) + margin;
}

/// Whether the user came there by the keyboard; nothing when the window itself, or a menu of it,
/// gave back the focus that was there before.
std::optional<bool> isByKeyboard(Qt::FocusReason reason) {
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        return true;
    case Qt::MouseFocusReason:
        return false;
    default:
        return std::nullopt;
    }
}

QRectF rimOf(const QWidget& control) {
    const auto* shaped = dynamic_cast<const HasFocusRim*>(&control);
    return shaped ? shaped->focusRim() : QRectF(control.rect());
}

double radiusOf(const QWidget& control) {
    const auto* shaped = dynamic_cast<const HasFocusRim*>(&control);
    return shaped ? shaped->focusRadius() : plainRadius;
}

/// The part of the window that what it stands in lets be seen of a control and its ring: pages
/// scroll up and down under what is above and below them.
QRect windowOnto(const QWidget& control, const QWidget& window) {
    QRect view = window.rect();
    for (const QWidget* widget = &control; widget != &window; widget = widget->parentWidget()) {
        const auto* area = qobject_cast<const QAbstractScrollArea*>(widget->parentWidget());
        if (area && area->viewport() == widget)
            view &= QRect(widget->mapTo(&window, QPoint(0, 0)), widget->size())
                        .adjusted(-reach(), 0, reach(), 0);
    }
    return view;
}

} // namespace

FocusRing::FocusRing(QWidget& window)
    : QWidget(&window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* control) { follow(control); });
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    if (watched->isWidgetType() && watched != this)
        takeNoteOf(*static_cast<QWidget*>(watched), *event);
    return false;
}

/// The reason for a change of focus is told to the widget alone. A rim moves with its control, with
/// whatever that stands in, and within the control, which then paints itself.
void FocusRing::takeNoteOf(const QWidget& widget, const QEvent& event) {
    const bool isControl = &widget == m_control;
    switch (event.type()) {
    case QEvent::FocusIn:
        if (isOfWindow(widget))
            m_cameByKeyboard = isByKeyboard(static_cast<const QFocusEvent&>(event).reason())
                                   .value_or(m_cameByKeyboard);
        break;
    case QEvent::MouseButtonPress:
        if (isOfWindow(widget))
            m_cameByKeyboard = false;
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        if (!m_control || (!isControl && !widget.isAncestorOf(m_control)))
            return;
        break;
    case QEvent::Paint:
        if (!isControl)
            return;
        break;
    default:
        return;
    }
    place();
}

bool FocusRing::isOfWindow(const QWidget& widget) const {
    return parentWidget()->isAncestorOf(&widget);
}

void FocusRing::follow(QWidget* control) {
    m_control = control && isOfWindow(*control) ? control : nullptr;
    place();
}

void FocusRing::place() {
    const QRect rim = m_control ? rimOf(*m_control).toAlignedRect() : QRect();
    if (!m_cameByKeyboard || rim.isEmpty() || m_control->visibleRegion().isEmpty()) {
        hide();
        return;
    }
    const int around = reach();
    const QPoint origin = m_control->mapTo(parentWidget(), rim.topLeft());
    setGeometry(QRect(origin, rim.size()).adjusted(-around, -around, around, around));
    if (isVisible())
        return;
    raise();
    show();
}

void FocusRing::paintEvent(QPaintEvent*) {
    if (!m_control)
        return;
    QPainter painter(this);
    painter.setClipRect(windowOnto(*m_control, *parentWidget()).translated(-pos()));
    const int around = reach();
    const QRectF rim = QRectF(rect()).adjusted(around, around, -around, -around);
    Paint::focusRing(painter, rim, radiusOf(*m_control), outset);
}

} // namespace tolvar
