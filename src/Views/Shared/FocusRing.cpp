#include "Views/Shared/FocusRing.h"

#include "Views/Paint/Paint.h"

#include <QApplication>
#include <QFocusEvent>

#include <cmath>

namespace tolvar {

namespace {

/// Room for the ring's own line.
constexpr int margin = 2;
constexpr double plainRadius = 4;

bool isByKeyboard(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

QRectF rimOf(const QWidget& control) {
    const auto* shaped = dynamic_cast<const HasFocusRim*>(&control);
    return shaped ? shaped->focusRim() : QRectF(control.rect());
}

double radiusOf(const QWidget& control) {
    const auto* shaped = dynamic_cast<const HasFocusRim*>(&control);
    return shaped ? shaped->focusRadius() : plainRadius;
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

/// The reason for a change of focus is told to the widget alone.
bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn)
        m_cameByKeyboard = isByKeyboard(static_cast<QFocusEvent*>(event)->reason());
    else if (event->type() == QEvent::MouseButtonPress)
        m_cameByKeyboard = false;
    else if (watched == m_control &&
             (event->type() == QEvent::Move || event->type() == QEvent::Resize ||
              event->type() == QEvent::Hide || event->type() == QEvent::Show))
        place();
    else
        return false;
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress)
        place();
    return false;
}

void FocusRing::follow(QWidget* control) {
    const bool isOurs = control && parentWidget()->isAncestorOf(control);
    m_control = isOurs ? control : nullptr;
    place();
}

void FocusRing::place() {
    if (!m_control || !m_cameByKeyboard || !m_control->isVisible()) {
        hide();
        return;
    }
    const int around = static_cast<int>(std::ceil(outset)) + margin;
    const QRect rim = rimOf(*m_control).toAlignedRect();
    const QPoint origin = m_control->mapTo(parentWidget(), rim.topLeft());
    setGeometry(QRect(origin, rim.size()).adjusted(-around, -around, around, around));
    raise();
    show();
    update();
}

void FocusRing::paintEvent(QPaintEvent*) {
    if (!m_control)
        return;
    QPainter painter(this);
    const int around = static_cast<int>(std::ceil(outset)) + margin;
    const QRectF rim = QRectF(rect()).adjusted(around, around, -around, -around);
    Paint::focusRing(painter, rim, radiusOf(*m_control), outset);
}

} // namespace tolvar
