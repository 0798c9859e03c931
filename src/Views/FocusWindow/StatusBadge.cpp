#include "Views/FocusWindow/StatusBadge.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <QAccessibleWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    double lamp = 6;
    double spacing = 6;
    double horizontalPadding = 8;
    double verticalPadding = 4;
    double outlineOpacity = 0.5;
};
constexpr Look look;

constexpr SessionStatus allStatuses[] = {SessionStatus::ready, SessionStatus::focusing,
                                         SessionStatus::paused};

const Spring change = Spring::withResponse(0.4, 0.75);

QFont wordFont() {
    return Instrument::font(10, QFont::Medium, 0.8);
}

QString word(SessionStatus status) {
    switch (status) {
    case SessionStatus::ready:
        return u"Ready"_s;
    case SessionStatus::focusing:
        return u"Focusing"_s;
    case SessionStatus::paused:
        return u"Paused"_s;
    }
    return {};
}

QColor ink(SessionStatus status) {
    return status == SessionStatus::ready ? Palette::labelSecondary : Palette::amber;
}

QColor plate(SessionStatus status) {
    return status == SessionStatus::ready ? Palette::raisedFaint : Palette::amberPlate;
}

double capsuleWidth(SessionStatus status) {
    return 2 * look.horizontalPadding + look.lamp + look.spacing +
           Paint::textWidth(word(status), wordFont());
}

double mixed(double from, double to, double amount) {
    return from + (to - from) * amount;
}

QColor faded(QColor color, double opacity) {
    color.setAlphaF(static_cast<float>(std::clamp(opacity, 0.0, 1.0)));
    return color;
}

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* badge = qobject_cast<StatusBadge*>(object);
    return badge ? new QAccessibleWidget(badge, QAccessible::StaticText) : nullptr;
}

} // namespace

StatusBadge::StatusBadge(AnimationDriver& driver, SessionStatus status, QWidget* parent)
    : QWidget(parent)
    , m_status(status)
    , m_former(status)
    , m_push(driver, 1, [this] { m_lamp.setColor(presentInk()); })
    , m_lamp(driver, [this] { update(); }) {
    QAccessible::installFactory(faceOf);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(word(status));
    m_lamp.setColor(presentInk());
    m_lamp.setOn(true);
    m_lamp.rest();
    setFixedSize(sizeHint());
}

QSize StatusBadge::sizeHint() const {
    double width = 0;
    for (const SessionStatus status : allStatuses)
        width = std::max(width, capsuleWidth(status));
    const double height = QFontMetricsF(wordFont()).height() + 2 * look.verticalPadding;
    return {static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height))};
}

void StatusBadge::setStatus(SessionStatus status) {
    if (status == m_status)
        return;
    m_former = std::exchange(m_status, status);
    setAccessibleName(word(status));
    m_push.jumpTo(0);
    m_push.animateTo(1, change);
    if (!isVisible())
        m_push.finish();
    breatheIfFocusing();
}

void StatusBadge::breatheIfFocusing() {
    m_lamp.setBreathing(isVisible() && m_status == SessionStatus::focusing);
}

void StatusBadge::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    breatheIfFocusing();
}

void StatusBadge::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_push.finish();
    m_lamp.setBreathing(false);
    m_lamp.rest();
}

QColor StatusBadge::presentInk() const {
    return mixedColor(ink(m_former), ink(m_status), m_push.value());
}

/// At the trailing end of the room it has.
QRectF StatusBadge::capsule() const {
    const double width = mixed(capsuleWidth(m_former), capsuleWidth(m_status), m_push.value());
    QRectF rect(0, 0, std::min(width, QWidget::width() * 1.0), height());
    if (layoutDirection() == Qt::LeftToRight)
        rect.moveRight(QWidget::width());
    return rect;
}

void StatusBadge::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double push = std::clamp(m_push.value(), 0.0, 1.0);
    const QRectF shape = capsule();
    const double radius = shape.height() / 2;
    Paint::fill(painter, shape, radius, mixedColor(plate(m_former), plate(m_status), push));
    Paint::outline(painter, shape, radius, faded(presentInk(), look.outlineOpacity));

    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const double lampInset = look.horizontalPadding + look.lamp / 2;
    const double lampX = isMirrored ? shape.right() - lampInset : shape.left() + lampInset;
    m_lamp.paint(painter, {lampX, shape.center().y()}, look.lamp);

    const double beside = look.horizontalPadding + look.lamp + look.spacing;
    QRectF line = isMirrored ? shape.adjusted(look.horizontalPadding, 0, -beside, 0)
                             : shape.adjusted(beside, 0, -look.horizontalPadding, 0);
    line.setWidth(line.width() + 1);
    const Paint::Saved saved(painter);
    painter.setClipRect(shape);
    const double travel = shape.height();
    if (push < 1)
        Paint::text(painter, line.translated(0, -travel * m_push.value()), word(m_former),
                    wordFont(), faded(ink(m_former), 1 - push));
    Paint::text(painter, line.translated(0, travel * (1 - m_push.value())), word(m_status),
                wordFont(), faded(ink(m_status), push));
}

} // namespace tolvar
