#include "Views/Shared/WheelReader.h"

#include <QWheelEvent>

#include <utility>

namespace tolvar {

namespace {

using Phase = ScrollStep::Phase;

QPointF deltaOf(const QWheelEvent& event) {
    if (event.phase() != Qt::NoScrollPhase && event.hasPixelDelta())
        return event.pixelDelta();
    const double eighthsOfDegrees = QWheelEvent::DefaultDeltasPerStep;
    QPointF delta = QPointF(event.angleDelta()) * WheelReader::pointsPerNotch / eighthsOfDegrees;
    if (event.modifiers().testFlag(Qt::ShiftModifier) && delta.x() == 0)
        delta = delta.transposed();
    return delta;
}

Phase phaseOf(Qt::ScrollPhase phase, bool glides) {
    switch (phase) {
    case Qt::ScrollBegin:
        return Phase::began;
    case Qt::ScrollUpdate:
        return Phase::changed;
    case Qt::ScrollMomentum:
        return Phase::momentum;
    case Qt::ScrollEnd:
        return glides ? Phase::momentumEnded : Phase::ended;
    default:
        return Phase::none;
    }
}

} // namespace

ScrollStep WheelReader::read(const QWheelEvent& event) {
    const bool glides = std::exchange(m_glides, event.phase() == Qt::ScrollMomentum);
    return {.phase = phaseOf(event.phase(), glides),
            .delta = deltaOf(event),
            .isInverted = event.inverted()};
}

} // namespace tolvar
