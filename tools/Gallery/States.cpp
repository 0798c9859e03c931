#include "Gallery/States.h"

#include "Views/Paint/Paint.h"
#include "Views/Shared/FocusRing.h"
#include "Views/Shared/KeyButton.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMouseEvent>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

constexpr int ringRoom = 5;

void press(QWidget& control) {
    const QPointF middle = QRectF(control.rect()).center();
    QMouseEvent event(QEvent::MouseButtonPress, middle, control.mapToGlobal(middle), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &event);
}

void enter(QWidget& control) {
    const QPointF middle = QRectF(control.rect()).center();
    control.setAttribute(Qt::WA_UnderMouse);
    QEnterEvent event(middle, middle, control.mapToGlobal(middle));
    QApplication::sendEvent(&control, &event);
}

} // namespace

QString nameOf(State state) {
    switch (state) {
    case State::rest:
        return u"rest"_s;
    case State::hovered:
        return u"hovered"_s;
    case State::pressed:
        return u"pressed"_s;
    case State::latched:
        return u"latched"_s;
    case State::disabled:
        return u"disabled"_s;
    case State::focused:
        return u"focused"_s;
    }
    return {};
}

void bringInto(QWidget& control, State state) {
    if (state == State::hovered)
        enter(control);
    else if (state == State::pressed)
        press(control);
    else if (state == State::disabled)
        control.setEnabled(false);
    else if (auto* key = qobject_cast<KeyButton*>(&control); key && state == State::latched)
        key->setLatched(true);
    else if (auto* button = qobject_cast<QAbstractButton*>(&control);
             button && state == State::latched)
        button->setChecked(true);
}

Ringed::Ringed(QWidget* control, QWidget* parent)
    : QWidget(parent)
    , m_control(control) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(ringRoom, ringRoom, ringRoom, ringRoom);
    layout->addWidget(control);
}

void Ringed::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto* shaped = dynamic_cast<const HasFocusRim*>(m_control);
    const QRectF rim = shaped ? shaped->focusRim() : QRectF(m_control->rect());
    Paint::focusRing(painter, rim.translated(m_control->pos()), shaped ? shaped->focusRadius() : 4,
                     FocusRing::outset);
}

} // namespace tolvar::gallery
