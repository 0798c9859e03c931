#include "Views/ActiveSession/ControlButton.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <utility>

namespace tolvar {

namespace {

constexpr double radius = 9;
constexpr double sidePadding = 13;

KeyStyle styleOf(const QColor& ink) {
    KeyStyle style = KeyStyle::standard();
    style.radius = radius;
    style.ink = style.latchedInk = ink;
    style.padding = {sidePadding, ControlButton::verticalPadding, sidePadding,
                     ControlButton::verticalPadding};
    return style;
}

} // namespace

ControlButton::ControlButton(const ControlContext& context, const QString& accessibilityLabel,
                             std::function<void()> action, Label label, const QColor& ink,
                             QWidget* parent)
    : KeyButton(context, styleOf(ink), accessibilityLabel, parent)
    , m_label(std::move(label)) {
    setToolTip(accessibilityLabel);
    connect(this, &KeyButton::clicked, this, [action = std::move(action)] {
        // A copy: the action may destroy the key, and itself with it.
        const auto act = action;
        act();
    });
}

void ControlButton::setAccessibilityLabel(const QString& label) {
    if (label == name())
        return;
    setName(label);
    setToolTip(label);
}

void ControlButton::paintLabel(QPainter& painter, const QRectF& label, const QColor& ink) {
    m_label({painter, label, ink});
}

} // namespace tolvar
