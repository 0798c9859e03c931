#include "Views/Shared/SwipeLayers.h"

#include "Views/Theme/Instrument.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace tolvar {

namespace {

/// The part of the way aside on which the veil comes up.
constexpr double veilShare = 0.3;

} // namespace

ClosingLayer::ClosingLayer(std::function<void()> tapped, QWidget* parent)
    : QWidget(parent)
    , m_tapped(std::move(tapped)) {
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void ClosingLayer::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton);
}

void ClosingLayer::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        m_tapped();
}

SlideFade::SlideFade(QWidget* parent)
    : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void SlideFade::setAmount(double amount) {
    const double wanted = std::clamp(amount / veilShare, 0.0, 1.0);
    setVisible(wanted > 0);
    if (std::exchange(m_amount, wanted) != wanted)
        update();
}

void SlideFade::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QColor clear = Instrument::Palette::panel;
    QColor veil = clear;
    clear.setAlpha(0);
    veil.setAlphaF(static_cast<float>(m_amount));
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    QLinearGradient gradient(0, 0, QWidget::width(), 0);
    gradient.setColorAt(isMirrored ? 1 : 0, veil);
    gradient.setColorAt(isMirrored ? 0 : 1, clear);
    painter.fillRect(rect(), gradient);
}

} // namespace tolvar
