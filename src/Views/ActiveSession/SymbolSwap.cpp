#include "Views/ActiveSession/SymbolSwap.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <algorithm>
#include <utility>

namespace tolvar {

namespace {

struct SwapStyle {
    /// The smallest that a symbol is seen.
    double least = 0.5;
    /// The parts of the way at which the old one is gone and the new one begins to come.
    double gone = 0.45;
    double coming = 0.3;
};
constexpr SwapStyle swapStyle;

void paintPart(QPainter& painter, Symbol symbol, const QRectF& box, const QColor& ink,
               double presence) {
    if (presence <= 0)
        return;
    const Paint::Saved saved(painter);
    if (presence != 1) {
        const double scale = swapStyle.least + (1 - swapStyle.least) * presence;
        painter.setOpacity(painter.opacity() * std::min(presence, 1.0));
        painter.translate(box.center());
        painter.scale(scale, scale);
        painter.translate(-box.center());
    }
    paintSymbol(painter, symbol, box, ink, SymbolWeight::semibold);
}

QRectF boxOf(Symbol symbol, const QPointF& center, double pointSize) {
    QRectF box(QPointF(), symbolSize(symbol, pointSize));
    box.moveCenter(center);
    return box;
}

} // namespace

SymbolSwap::SymbolSwap(AnimationDriver& driver, Symbol symbol, std::function<void()> changed)
    : m_symbol(symbol)
    , m_former(symbol)
    , m_arrival(driver, 1, std::move(changed)) {}

void SymbolSwap::change(Symbol symbol) {
    if (symbol == m_symbol)
        return;
    m_former = std::exchange(m_symbol, symbol);
    m_arrival.jumpTo(0);
    m_arrival.animateTo(1, Instrument::Motion::scene);
}

void SymbolSwap::paint(QPainter& painter, const QPointF& center, double pointSize,
                       const QColor& ink) const {
    const double way = m_arrival.value();
    paintPart(painter, m_former, boxOf(m_former, center, pointSize), ink,
              m_arrival.isMoving() ? 1 - way / swapStyle.gone : 0);
    paintPart(painter, m_symbol, boxOf(m_symbol, center, pointSize), ink,
              (way - swapStyle.coming) / (1 - swapStyle.coming));
}

} // namespace tolvar
