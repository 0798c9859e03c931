#include "Views/Shared/Lamp.h"

#include "Views/Paint/Paint.h"

#include <QtMath>

namespace tolvar {

namespace {

const Eased filament{0.18, Easing::easeOut()};
const Eased breath{1.2, Easing::easeInOut()};
const Eased wake{0.3, Easing::easeOut()};
constexpr double breathOut = 1;
constexpr double dimmest = 0.4;
constexpr double glow = 0.7;
/// A shadow blurred over four points is seen a little further out.
constexpr double glowReach = 5;
constexpr double mostBlown = 1.7;

SpringKeyframe flash(double to, double duration, double bounce) {
    SpringKeyframe keyframe;
    keyframe.value = to;
    keyframe.duration = duration;
    keyframe.spring = Spring::withDuration(0.5, bounce);
    return keyframe;
}

KeyframeTrack blink(double peak, double there, double back) {
    return KeyframeTrack(1, {flash(peak, there, 0.15), flash(1, back, 0.3)});
}

} // namespace

LampLight::LampLight(AnimationDriver& driver, std::function<void()> changed)
    : m_changed(std::move(changed))
    , m_filament(driver, 0, m_changed)
    , m_dim(driver, 0, m_changed)
    , m_blink(driver, {KeyframeTrack(1)}, m_changed)
    , m_settingsConnection(QObject::connect(&driver, &AnimationDriver::settingsChanged, &driver,
                                            [this] { updateBreathing(); })) {}

LampLight::~LampLight() {
    QObject::disconnect(m_settingsConnection);
}

void LampLight::setOn(bool isOn) {
    if (std::exchange(m_isOn, isOn) == isOn)
        return;
    m_filament.animateTo(isOn ? 1 : 0, filament);
    m_blink.play({isOn ? blink(1.7, 0.12, 0.35) : blink(0.7, 0.08, 0.2)});
}

void LampLight::setColor(const QColor& color) {
    m_color = color;
    m_changed();
}

void LampLight::setBreathing(bool breathes) {
    m_breathes = breathes;
    updateBreathing();
}

void LampLight::updateBreathing() {
    if (m_breathes)
        m_dim.animateTo(breathOut, breath,
                        {.delay = 0, .repeat = Repeat::forever(Repeat::Direction::Alternating)});
    else
        m_dim.animateTo(0, wake);
}

void LampLight::rest() {
    m_filament.finish();
    m_blink.finish();
    m_dim.jumpTo(0);
}

void LampLight::paint(QPainter& painter, const QPointF& center, double size) const {
    const Paint::Saved saved(painter);
    painter.setOpacity(painter.opacity() * (1 - (1 - dimmest) * m_dim.value()));
    const double lit = m_filament.value();
    const QColor color = mixedColor(Instrument::Palette::lampOff, m_color, lit);
    Paint::light(painter, center, size * m_blink.value(), color, glow * lit, glowReach * lit);
}

double LampLight::reach(double size) {
    return size * (mostBlown - 1) / 2 + glowReach;
}

Lamp::Lamp(AnimationDriver& driver, double size, QWidget* parent)
    : QWidget(parent)
    , m_size(size)
    , m_light(driver, [this] { update(); }) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedSize(sizeHint());
}

QSize Lamp::sizeHint() const {
    const int side = qCeil(m_size + 2 * LampLight::reach(m_size));
    return {side, side};
}

void Lamp::setOn(bool isOn) {
    m_light.setOn(isOn);
    if (!isVisible())
        m_light.rest();
}

void Lamp::setBreathing(bool breathes) {
    m_breathes = breathes;
    m_light.setBreathing(breathes && isVisible());
}

void Lamp::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_light.paint(painter, QRectF(rect()).center(), m_size);
}

void Lamp::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_light.setBreathing(m_breathes);
}

/// Nobody sees it breathe.
void Lamp::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_light.setBreathing(false);
    m_light.rest();
}

} // namespace tolvar
