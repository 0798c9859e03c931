#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/Theme/Symbol.h"

#include <functional>

class QPainter;
class QPointF;

namespace tolvar {

/// A symbol that gives way to another: the old one shrinks and fades, then the new one grows in its
/// place.
class SymbolSwap {
public:
    /// `driver` outlives the swap; `changed` is called at every change of what `paint` draws.
    SymbolSwap(AnimationDriver& driver, Symbol symbol, std::function<void()> changed);

    Symbol symbol() const { return m_symbol; }
    void change(Symbol symbol);
    /// Ends the change at once, as when nobody can see it.
    void finish() { m_arrival.finish(); }

    /// Draws it beside text of `pointSize` points, semibold.
    void paint(QPainter& painter, const QPointF& center, double pointSize, const QColor& ink) const;

private:
    Symbol m_symbol;
    Symbol m_former;
    AnimatedValue m_arrival;
};

} // namespace tolvar
