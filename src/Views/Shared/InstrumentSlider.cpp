#include "Views/Shared/InstrumentSlider.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

/// Assistive technology reads these as they are: per cent.
constexpr int steps = 100;
constexpr int keyStep = 5;
constexpr double knobRadius = 5;
constexpr double notchInset = 5;

} // namespace

InstrumentSlider::InstrumentSlider(const ControlContext& context, const QString& name,
                                   const Style& style, QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
    , m_style(style)
    , m_press(context.motion, 0, [this] { update(); }) {
    setAccessibleName(name);
    setRange(0, steps);
    setSingleStep(keyStep);
    setPageStep(2 * keyStep);
    setTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QSlider::valueChanged, this, [this] {
        if (!m_isProgramSetting)
            Q_EMIT editingEnded();
    });
}

double InstrumentSlider::amount() const {
    return static_cast<double>(value()) / steps;
}

void InstrumentSlider::setAmount(double amount) {
    const QScopedValueRollback setting(m_isProgramSetting, true);
    setValue(static_cast<int>(std::lround(std::clamp(amount, 0.0, 1.0) * steps)));
}

QSize InstrumentSlider::sizeHint() const {
    return {m_style.preferredWidth, static_cast<int>(std::ceil(m_style.knobHeight))};
}

QSize InstrumentSlider::minimumSizeHint() const {
    return {static_cast<int>(3 * m_style.knobWidth), sizeHint().height()};
}

double InstrumentSlider::focusRadius() const {
    return knobRadius;
}

QRectF InstrumentSlider::groove() const {
    QRectF groove(0, 0, width(), m_style.grooveHeight);
    groove.moveCenter(QRectF(rect()).center());
    return groove;
}

QRectF InstrumentSlider::knob() const {
    const double share = m_hand.value_or(static_cast<double>(sliderPosition()) / steps);
    const double travel = width() - m_style.knobWidth;
    const double left = travel * (isMirrored() ? 1 - share : share);
    return {left, (height() - m_style.knobHeight) / 2, m_style.knobWidth, m_style.knobHeight};
}

/// Anywhere on the slider: the knob comes to the hand.
void InstrumentSlider::dragTo(double x) {
    const double along = (x - m_style.knobWidth / 2) / (width() - m_style.knobWidth);
    m_hand = std::clamp(isMirrored() ? 1 - along : along, 0.0, 1.0);
    setSliderPosition(static_cast<int>(std::lround(*m_hand * steps)));
    update();
}

void InstrumentSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    setSliderDown(true);
    m_press.animateTo(1, Instrument::Motion::keyDown);
    dragTo(event->position().x());
}

void InstrumentSlider::mouseMoveEvent(QMouseEvent* event) {
    if (isSliderDown())
        dragTo(event->position().x());
}

void InstrumentSlider::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !isSliderDown())
        return event->ignore();
    endDrag();
}

/// A hand that comes back to where it began has chosen too.
void InstrumentSlider::endDrag() {
    const int before = value();
    m_press.animateTo(0, Instrument::Motion::keyUp);
    m_hand.reset();
    setSliderDown(false);
    if (value() == before)
        Q_EMIT editingEnded();
}

void InstrumentSlider::cancelDrag() {
    m_press.jumpTo(0);
    if (!isSliderDown())
        return;
    m_hand.reset();
    setSliderPosition(value());
    setSliderDown(false);
}

void InstrumentSlider::keyPressEvent(QKeyEvent* event) {
    if (!isSliderDown())
        QSlider::keyPressEvent(event);
    else if (event->key() == Qt::Key_Escape)
        cancelDrag();
}

void InstrumentSlider::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void InstrumentSlider::changeEvent(QEvent* event) {
    // Left to itself, a slider that is disabled keeps what it was dragged to.
    if (event->type() == QEvent::EnabledChange)
        cancelDrag();
    QSlider::changeEvent(event);
}

void InstrumentSlider::hideEvent(QHideEvent* event) {
    QSlider::hideEvent(event);
    cancelDrag();
}

void InstrumentSlider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF track = groove();
    const QRectF cap = knob();
    const double radius = m_style.grooveHeight / 2;
    const auto dim = [this](const Bevel& bevel) { return isEnabled() ? bevel : bevel.flattened(); };
    Paint::bevel(painter, track, radius, dim(Bevel::well));

    const double margin = Paint::wholePixels(painter, 1);
    QRectF lit = track.adjusted(margin, margin, -margin, -margin);
    if (isMirrored())
        lit.setLeft(cap.center().x());
    else
        lit.setRight(cap.center().x());
    if (isEnabled() && sliderPosition() > 0)
        Paint::fill(painter, lit, radius - margin, Palette::amber);

    const QRectF sunk = cap.translated(0, m_press.value() * 0.5);
    Paint::bevel(painter, sunk, knobRadius, dim(Bevel::modeIndicator));
    const double x = sunk.center().x();
    Paint::notch(painter, {x, sunk.top() + notchInset}, sunk.height() - 2 * notchInset,
                 isEnabled() ? Palette::label : Palette::labelQuaternary);
}

} // namespace tolvar
