#include "Views/ActiveSession/PauseKey.h"

#include "Views/Theme/Instrument.h"

namespace tolvar {

namespace {

constexpr double symbolPoints = 15;
/// Between the lamps and the trailing edge of the key.
constexpr double lampsInset = 12;

} // namespace

PauseKey::PauseKey(const ControlContext& context, std::function<void()> action, QWidget* parent)
    : ControlButton(
          context, {}, std::move(action), [this](const Canvas& canvas) { paintFace(canvas); },
          Instrument::Palette::label, parent)
    , m_symbol(context.motion, m_face.symbol, [this] { update(); })
    , m_lamps(context.motion, [this] { update(); }) {}

void PauseKey::setFace(const PauseKeyFace& face) {
    m_face = face;
    setAccessibilityLabel(face.name);
    setLatched(face.action == PauseKeyFace::Action::resume);
    setEnabled(face.isEnabled);
    m_symbol.change(face.symbol);
    m_lamps.setCount(face.lamps);
    if (!isVisible())
        finish();
}

void PauseKey::paintFace(const Canvas& canvas) const {
    m_symbol.paint(canvas.painter, canvas.place.center(), symbolPoints, canvas.ink);
    const double trailing = isRightToLeft() ? lampsInset : width() - lampsInset;
    m_lamps.paint(canvas.painter, {trailing, canvas.place.center().y()}, layoutDirection());
}

void PauseKey::finish() {
    m_symbol.finish();
    m_lamps.finish();
}

void PauseKey::hideEvent(QHideEvent* event) {
    ControlButton::hideEvent(event);
    finish();
}

} // namespace tolvar
