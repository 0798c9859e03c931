#include "Views/Shared/InstrumentSwitch.h"

#include "Views/Paint/Paint.h"
#include "Views/Shared/ReturnKey.h"
#include "Views/Theme/Feedback.h"
#include "Views/Theme/Instrument.h"

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

struct Geometry {
    QSizeF groove{38, 22};
    double inset = 2;
    double lampSize = 4;
    double lampReach = 4;
    double lampGlow = 0.6;
    /// The lamp lies in the part of the groove that the knob leaves free.
    double lampAside = 10.5;
    /// How much wider the knob is while it is pressed.
    double squeeze = 3;
};
constexpr Geometry measures;

double mirrored(double x, const QRectF& rect, Qt::LayoutDirection direction) {
    return direction == Qt::RightToLeft ? rect.left() + rect.right() - x : x;
}

} // namespace

InstrumentSwitch::InstrumentSwitch(const ControlContext& context, const QString& name,
                                   QWidget* parent)
    : QCheckBox(parent)
    , m_context(context)
    , m_position(context.motion, 0, [this] { update(); })
    , m_squeeze(context.motion, 0, [this] { update(); }) {
    setAccessibleName(name);
    const auto squeeze = [this](bool pressed) {
        m_squeeze.animateTo(pressed ? 1 : 0,
                            pressed ? Instrument::Motion::keyDown : Instrument::Motion::keyUp);
    };
    connect(this, &QCheckBox::pressed, this, [squeeze] { squeeze(true); });
    connect(this, &QCheckBox::released, this, [squeeze] { squeeze(false); });
}

QSize InstrumentSwitch::sizeHint() const {
    return measures.groove.toSize();
}

QRectF InstrumentSwitch::focusRim() const {
    QRectF groove(QPointF(0, 0), measures.groove);
    groove.moveCenter(QRectF(rect()).center());
    return groove;
}

double InstrumentSwitch::focusRadius() const {
    return measures.groove.height() / 2;
}

/// A tap is felt before the value changes.
void InstrumentSwitch::nextCheckState() {
    m_context.feedback.play(isChecked() ? Feedback::Event::switchedOff
                                        : Feedback::Event::switchedOn);
    setChecked(!isChecked());
}

void InstrumentSwitch::checkStateSet() {
    QCheckBox::checkStateSet();
    follow();
}

void InstrumentSwitch::follow() {
    const double end = isChecked() ? 1 : 0;
    if (isVisible())
        m_position.animateTo(end, Instrument::Motion::latch);
    else
        m_position.jumpTo(end);
}

void InstrumentSwitch::changeEvent(QEvent* event) {
    QCheckBox::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        update();
}

void InstrumentSwitch::hideEvent(QHideEvent* event) {
    QCheckBox::hideEvent(event);
    m_position.finish();
    m_squeeze.jumpTo(0);
}

void InstrumentSwitch::keyPressEvent(QKeyEvent* event) {
    withReturnAsSpace(event, [this](QKeyEvent* key) { QCheckBox::keyPressEvent(key); });
}

void InstrumentSwitch::keyReleaseEvent(QKeyEvent* event) {
    withReturnAsSpace(event, [this](QKeyEvent* key) { QCheckBox::keyReleaseEvent(key); });
}

void InstrumentSwitch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF groove = focusRim();
    const double radius = focusRadius();
    const double position = m_position.value();
    const auto dim = [this](const Bevel& bevel) { return isEnabled() ? bevel : bevel.flattened(); };
    Paint::bevel(painter, groove, radius, dim(Bevel::mixed(Bevel::well, Bevel::latched, position)));

    const QColor lit = mixedColor(Palette::lampOff, Palette::amber, position);
    const QColor light = isEnabled() ? lit : mixedColor(lit, Palette::well, 0.6);
    const double lampX = mirrored(groove.left() + measures.lampAside, groove, layoutDirection());
    Paint::light(painter, {lampX, groove.center().y()}, measures.lampSize, light,
                 isEnabled() ? measures.lampGlow * position : 0, measures.lampReach);

    const double side = groove.height() - 2 * measures.inset;
    const double width = side + measures.squeeze * m_squeeze.value();
    const double travel = groove.width() - 2 * measures.inset - width;
    QRectF knob(groove.left() + measures.inset + travel * position, groove.top() + measures.inset,
                width, side);
    if (layoutDirection() == Qt::RightToLeft)
        knob.moveLeft(groove.left() + groove.right() - knob.right());
    Paint::bevel(painter, knob, side / 2, dim(Bevel::modeIndicator));
}

} // namespace tolvar
