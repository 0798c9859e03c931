#include "Views/StartSession/ChoiceKeys.h"

#include "Views/Paint/Paint.h"

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

struct Look {
    double lamp = 7;
    double besideLamp = 9;
    double shortestText = 40;
};
constexpr Look look;

/// The columns of a grid of keys are equally wide, whatever is on the keys.
void shareWidth(KeyButton& key) {
    key.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

} // namespace

DurationButton::DurationButton(const ControlContext& context, const QString& title, QWidget* parent)
    : KeyButton(context, KeyStyle::standard(), title, parent) {
    shareWidth(*this);
}

CategoryButton::CategoryButton(const ControlContext& context, const BlockCategory& category,
                               QWidget* parent)
    : KeyButton(context, KeyStyle::standard(), {}, parent)
    , m_categoryId(category.id)
    , m_lamp(context.motion, [this] { update(); }) {
    shareWidth(*this);
    setCategoryName(category.name);
}

void CategoryButton::setCategoryName(const QString& name) {
    setName(name.isEmpty() ? u"Untitled category"_s : name);
}

void CategoryButton::setSelected(bool selected) {
    setLatched(selected);
    m_lamp.setOn(selected);
    if (!isVisible())
        m_lamp.rest();
}

QSizeF CategoryButton::labelSize() const {
    const QFontMetricsF metrics(keyStyle().font);
    return {look.lamp + look.besideLamp + Paint::textWidth(name(), keyStyle().font),
            std::max(look.lamp, metrics.height())};
}

QSize CategoryButton::minimumSizeHint() const {
    const QMarginsF& padding = keyStyle().padding;
    const double width =
        padding.left() + look.lamp + look.besideLamp + look.shortestText + padding.right();
    return {static_cast<int>(width), sizeHint().height()};
}

void CategoryButton::hideEvent(QHideEvent* event) {
    KeyButton::hideEvent(event);
    m_lamp.rest();
}

void CategoryButton::paintLabel(QPainter& painter, const QRectF& label, const QColor& ink) {
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const double inset = look.lamp / 2;
    const double lampX = isMirrored ? label.right() - inset : label.left() + inset;
    m_lamp.paint(painter, {lampX, label.center().y()}, look.lamp);

    const double beside = look.lamp + look.besideLamp;
    const QRectF line =
        isMirrored ? label.adjusted(0, 0, -beside, 0) : label.adjusted(beside, 0, 0, 0);
    Paint::text(painter, line, name(), keyStyle().font, ink,
                isMirrored ? Qt::AlignRight : Qt::AlignLeft);
}

} // namespace tolvar
