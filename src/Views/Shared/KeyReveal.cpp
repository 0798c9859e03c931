#include "Views/Shared/KeyReveal.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace tolvar {

namespace {

constexpr double smallest = 0.6;

} // namespace

KeyReveal::KeyReveal(QWidget& owner) {
    setEnabled(false);
    owner.setGraphicsEffect(this);
}

void KeyReveal::setProgress(double progress) {
    const double wanted = std::clamp(progress, 0.0, 1.0);
    if (std::exchange(m_progress, wanted) == wanted)
        return;
    setEnabled(wanted < 1);
    update();
}

void KeyReveal::draw(QPainter* painter) {
    QPoint place;
    const QPixmap picture = sourcePixmap(Qt::LogicalCoordinates, &place, NoPad);
    const QPointF middle = sourceBoundingRect().center();
    const double scale = smallest + (1 - smallest) * m_progress;
    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->setOpacity(painter->opacity() * m_progress);
    painter->translate(middle);
    painter->scale(scale, scale);
    painter->translate(-middle);
    painter->drawPixmap(place, picture);
    painter->restore();
}

} // namespace tolvar
