#include "Views/Shared/ScrollThumb.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>

namespace tolvar {

namespace {

struct Look {
    /// The part of the edge that takes the mouse.
    int width = 10;
    double thickness = 3;
    /// From the edge, and from the ends of it.
    double inset = 3;
    double endInset = 6;
    double shortest = 28;
};
constexpr Look look;

} // namespace

ScrollThumb::ScrollThumb(QAbstractScrollArea& area)
    : QWidget(&area)
    , m_area(area) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.installEventFilter(this);
    connect(area.verticalScrollBar(), &QScrollBar::rangeChanged, this, &ScrollThumb::place);
    connect(area.verticalScrollBar(), &QScrollBar::valueChanged, this,
            qOverload<>(&QWidget::update));
    place();
}

bool ScrollThumb::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_area &&
        (event->type() == QEvent::Resize || event->type() == QEvent::LayoutDirectionChange))
        place();
    return QWidget::eventFilter(watched, event);
}

void ScrollThumb::place() {
    const int left = layoutDirection() == Qt::RightToLeft ? 0 : m_area.width() - look.width;
    setGeometry(left, 0, look.width, m_area.height());
    const QScrollBar& bar = *m_area.verticalScrollBar();
    setVisible(bar.maximum() > bar.minimum());
    raise();
    update();
}

/// How far the thumb can go, in points.
double ScrollThumb::travel() const {
    return height() - 2 * look.endInset - thumb().height();
}

QRectF ScrollThumb::thumb() const {
    const QScrollBar& bar = *m_area.verticalScrollBar();
    const double track = height() - 2 * look.endInset;
    const double range = std::max(1, bar.maximum() - bar.minimum());
    const double length =
        std::clamp(track * bar.pageStep() / (range + bar.pageStep()), look.shortest, track);
    const double top = look.endInset + (track - length) * (bar.value() - bar.minimum()) / range;
    const double left =
        layoutDirection() == Qt::RightToLeft ? look.inset : width() - look.inset - look.thickness;
    return {left, top, look.thickness, length};
}

void ScrollThumb::mousePressEvent(QMouseEvent* event) {
    QScrollBar& bar = *m_area.verticalScrollBar();
    const double at = event->position().y();
    if (at < thumb().top())
        bar.triggerAction(QAbstractSlider::SliderPageStepSub);
    else if (at > thumb().bottom())
        bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    m_grip = {at, bar.value()};
    m_isHeld = true;
    update();
}

void ScrollThumb::mouseMoveEvent(QMouseEvent* event) {
    if (!m_isHeld || travel() <= 0)
        return;
    QScrollBar& bar = *m_area.verticalScrollBar();
    const double moved = (event->position().y() - m_grip.pointer) / travel();
    bar.setValue(m_grip.value + qRound(moved * (bar.maximum() - bar.minimum())));
}

void ScrollThumb::mouseReleaseEvent(QMouseEvent*) {
    m_isHeld = false;
    update();
}

void ScrollThumb::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    update();
}

void ScrollThumb::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    update();
}

void ScrollThumb::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool isTouched = m_isHeld || underMouse();
    Paint::fill(painter, thumb(), look.thickness / 2,
                isTouched ? Instrument::Palette::labelQuaternary : Instrument::Palette::labelFaint);
}

} // namespace tolvar
