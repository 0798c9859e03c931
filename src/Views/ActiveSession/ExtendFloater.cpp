#include "Views/ActiveSession/ExtendFloater.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <cmath>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

enum Track : std::size_t { yTrack, opacityTrack, scaleTrack };

/// Where the flight ends, and how large the text gets on its way.
constexpr double highest = -40;
constexpr double mostScale = 1.3;
constexpr int margin = 2;

QString text() {
    return u"+5 min"_s;
}

QFont textFont() {
    return Instrument::font(11, QFont::Medium);
}

QSizeF textSize() {
    return {Paint::textWidth(text(), textFont()), QFontMetricsF(textFont()).height()};
}

CubicKeyframe cubic(double to, double duration) {
    return {.value = to, .duration = duration};
}

SpringKeyframe spring(double to, double duration, double bounce) {
    return {.value = to, .duration = duration, .spring = Spring::withDuration(0.5, bounce)};
}

/// In the order of `Track`.
KeyframePlayer::Tracks flight() {
    constexpr FloaterFrame start;
    return {KeyframeTrack(start.y, {cubic(0, 0.01), spring(-30, 0.5, 0.15), cubic(highest, 0.4)}),
            KeyframeTrack(start.opacity, {cubic(1, 0.12), cubic(1, 0.4), cubic(0, 0.35)}),
            KeyframeTrack(start.scale, {spring(1.15, 0.2, 0.3), spring(1, 0.3, 0)})};
}

} // namespace

ExtendFloater::ExtendFloater(AnimationDriver& driver, QWidget* parent)
    : QFocusFrame(parent)
    , m_flight(driver, flight(), [this] { update(); }) {
    const QSizeF largest = textSize() * mostScale;
    resize(qCeil(largest.width()) + 2 * margin, qCeil(largest.height() - highest) + 2 * margin);
}

void ExtendFloater::setTrigger(int trigger) {
    m_flight.setCounter(trigger);
    if (!isVisible())
        m_flight.finish();
}

FloaterFrame ExtendFloater::frame() const {
    return {m_flight.value(yTrack), m_flight.value(opacityTrack), m_flight.value(scaleTrack)};
}

void ExtendFloater::placeOver(const QRect& origin) {
    const double spare = textSize().height() * (mostScale - 1) / 2 + margin;
    const double bottom = origin.top() + textSize().height() + spare;
    move(qRound(origin.x() + (origin.width() - width()) / 2.0), qRound(bottom) - height());
}

void ExtendFloater::paintEvent(QPaintEvent*) {
    const FloaterFrame now = frame();
    if (now.opacity <= 0)
        return;
    QPainter painter(this);
    painter.setOpacity(std::min(now.opacity, 1.0));
    const double spare = textSize().height() * (mostScale - 1) / 2 + margin;
    painter.translate(width() / 2.0, height() - spare - textSize().height() / 2 + now.y);
    painter.scale(now.scale, now.scale);
    QRectF box(0, 0, width(), textSize().height());
    box.moveCenter({});
    Paint::text(painter, box, text(), textFont(), Instrument::Palette::amber, Qt::AlignHCenter);
}

void ExtendFloater::hideEvent(QHideEvent* event) {
    QFocusFrame::hideEvent(event);
    m_flight.finish();
}

} // namespace tolvar
