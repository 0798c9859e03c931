#include "Views/ActiveSession/TimerDial.h"

#include "Views/ActiveSession/CrossFade.h"
#include "Views/ActiveSession/DialDrawing.h"
#include "Views/Paint/ClockText.h"
#include "Views/Paint/Paint.h"
#include "Views/Theme/Bevel.h"
#include "Views/Theme/Instrument.h"

#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

const Spring sweep = Spring::withResponse(1.1, 0.8);
constexpr double sweepDelay = 0.45;
/// Of the progress: a thirtieth of a point.
constexpr double arcPrecision = 5e-5;
const Spring advance = Spring::withResponse(0.9, 0.85);
const Eased breath{1.5, Easing::easeInOut()};
const Eased wake{0.3, Easing::easeOut()};

struct DialStyle {
    double clockSize = 42;
    double clockTracking = -0.84;
    /// What the clock shrinks to fit.
    double clockRoom = 150;
    double captionSize = 11;
    double captionTracking = 0.44;
    double captionRoom = 146;
    double spacing = 5;
    /// Of the arc while the session is paused: at rest, and when it has breathed in.
    double dim = 0.25;
    double breathing = 0.5;
    /// The steps that the arc is seen to move in, in device pixels, and to breathe in.
    double step = 0.25;
    double dimStep = 1.0 / 128;
    /// Within the ring nothing changes but the texts; the side of that square.
    double hole = 116;
};
constexpr DialStyle dialStyle;

QFont clockFont() {
    return Instrument::font(dialStyle.clockSize, QFont::Medium, dialStyle.clockTracking);
}

QFont captionFont() {
    return Instrument::font(dialStyle.captionSize, QFont::Normal, dialStyle.captionTracking);
}

} // namespace

TimerDial::TimerDial(AnimationDriver& driver, QWidget* parent)
    : SpokenText(parent)
    , m_driver(driver)
    , m_clock(driver, clockFont(), dialStyle.clockRoom,
              [this](const QRectF& area) {
                  update(area.translated(clockCenter()).toAlignedRect().adjusted(-1, -1, 1, 1));
              })
    , m_progress(driver, 0, [this] { arcMoved(); })
    , m_pause(driver, 0, [this] { update(); })
    , m_breath(driver, 0, [this] { arcDimmed(); }) {
    connect(&driver, &AnimationDriver::settingsChanged, this, &TimerDial::breathe);
    m_progress.setPrecision(arcPrecision);
    setFixedSize(sizeHint());
    m_clock.show(m_reading.clock());
}

QSize TimerDial::sizeHint() const {
    return {DialMeasures::pictureSize, DialMeasures::pictureSize};
}

void TimerDial::setReading(const DialReading& reading) {
    const DialReading before = std::exchange(m_reading, reading);
    moveClock(before.remainingSeconds);
    moveArc();
    movePause();
    breathe();
    setAccessibleName(u"%1, %2"_s.arg(reading.clock(), reading.caption()));
    if (before.caption() != reading.caption())
        update(captionBox().toAlignedRect());
}

void TimerDial::moveClock(int secondsBefore) {
    if (!isVisible())
        m_clock.show(m_reading.clock());
    else
        m_clock.roll(m_reading.clock(), m_reading.remainingSeconds < secondsBefore
                                            ? RollingClock::Direction::down
                                            : RollingClock::Direction::up);
}

/// A new reading that comes before the sweep has begun changes where that leads, not when it
/// begins.
void TimerDial::moveArc() {
    if (!isVisible()) {
        m_progress.jumpTo(m_reading.progress);
        return;
    }
    const double wait = m_sweepBegins.value_or(0) - m_driver.now();
    if (wait > 0)
        m_progress.animateTo(m_reading.progress, sweep, {.delay = wait});
    else
        m_progress.animateTo(m_reading.progress, advance);
}

void TimerDial::movePause() {
    const double target = m_reading.isPaused ? 1 : 0;
    if (isVisible())
        m_pause.animateTo(target, Instrument::Motion::scene);
    else
        m_pause.jumpTo(target);
}

void TimerDial::breathe() {
    if (!isVisible())
        m_breath.jumpTo(0);
    else if (m_reading.isPaused)
        m_breath.animateTo(1, breath, {.repeat = Repeat::forever(Repeat::Direction::Alternating)});
    else
        m_breath.animateTo(0, wake);
}

/// The first time it is seen, the arc comes from twelve o'clock.
void TimerDial::showEvent(QShowEvent* event) {
    SpokenText::showEvent(event);
    if (!m_sweepBegins) {
        m_sweepBegins = m_driver.now() + sweepDelay;
        m_progress.jumpTo(0);
        m_progress.animateTo(m_reading.progress, sweep, {.delay = sweepDelay});
    }
    breathe();
}

void TimerDial::hideEvent(QHideEvent* event) {
    SpokenText::hideEvent(event);
    // What was to come has come.
    m_sweepBegins = m_driver.now();
    m_clock.finish();
    m_progress.finish();
    m_pause.finish();
    m_breath.jumpTo(0);
}

double TimerDial::shownProgress() const {
    const double steps = arcLength(1) * devicePixelRatioF() / dialStyle.step;
    const double begun = std::min(m_progress.value(), shortestArc / arcLength(1));
    return std::max(std::round(m_progress.value() * steps) / steps, begun);
}

void TimerDial::arcMoved() {
    if (const double shown = shownProgress(); shown != m_arc.progress)
        update(arcChange(m_arc.progress, shown).toAlignedRect());
}

/// Slow as a breath is, most frames would show no difference.
void TimerDial::arcDimmed() {
    if (arcOpacity() == m_arc.opacity)
        return;
    QRectF hole(0, 0, dialStyle.hole, dialStyle.hole);
    hole.moveCenter(QRectF(rect()).center());
    update(QRegion(rect()) - QRegion(hole.toRect()));
}

double TimerDial::arcOpacity() const {
    const double paused = std::lerp(dialStyle.dim, dialStyle.breathing, m_breath.value());
    const double opacity = std::clamp(std::lerp(1.0, paused, m_pause.value()), 0.0, 1.0);
    return std::round(opacity / dialStyle.dimStep) * dialStyle.dimStep;
}

void TimerDial::drawLayers() {
    const double scale = devicePixelRatioF();
    if (m_plate.isNull() || m_plate.devicePixelRatio() != scale)
        m_plate = dialPlate(scale);
    if (const double shown = shownProgress(); shown != m_arc.progress || scale != m_arc.scale)
        m_arc = {dialArc(shown, scale), shown, scale};
    m_arc.opacity = arcOpacity();
}

void TimerDial::paintEvent(QPaintEvent* event) {
    drawLayers();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_plate);
    painter.setOpacity(m_arc.opacity);
    painter.drawPixmap(0, 0, m_arc.picture);
    painter.setOpacity(1);
    m_clock.paint(painter, clockCenter(),
                  mixedColor(Palette::label, Palette::labelDim, m_pause.value()));
    if (event->region().intersects(captionBox().toAlignedRect()))
        paintCaption(painter);
}

/// Clock and caption stand as a column in the middle of the dial.
QPointF TimerDial::clockCenter() const {
    const double below = dialStyle.spacing + QFontMetricsF(captionFont()).height();
    return QRectF(rect()).center() - QPointF(0, below / 2);
}

QRectF TimerDial::captionBox() const {
    const double clock = QFontMetricsF(clockFont()).height();
    QRectF box(0, 0, dialStyle.captionRoom, QFontMetricsF(captionFont()).height());
    box.moveCenter(clockCenter());
    box.moveTop(clockCenter().y() + clock / 2 + dialStyle.spacing);
    return box;
}

void TimerDial::paintCaption(QPainter& painter) const {
    const CrossFade fade(m_pause.value());
    const auto paint = [&](const QString& caption, const QColor& color, double opacity) {
        if (opacity <= 0)
            return;
        painter.setOpacity(opacity);
        Paint::clockText(painter, captionBox(), caption, captionFont(), color, Qt::AlignHCenter);
    };
    paint(m_reading.runningCaption(), Palette::labelTertiary, fade.first());
    paint(m_reading.pausedCaption(), Palette::amber, fade.second());
}

} // namespace tolvar
