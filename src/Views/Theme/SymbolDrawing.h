#pragma once

#include "Views/Theme/Symbol.h"

#include <QByteArray>
#include <QImage>
#include <QRectF>

#include <vector>

namespace tolvar {

/// One symbol as its file in Symbols/ holds it.
struct SymbolDrawing {
    /// The height of the grid that all symbols are drawn on.
    static constexpr qreal gridHeight = 24;
    /// How wide the strokes are drawn there.
    static constexpr qreal strokeWidth = 1.75;
    /// Blank pixels that a mask has on every side, beyond the drawing's box: strokes that are moved
    /// onto whole pixels may need them.
    static constexpr int maskMargin = 1;

    QByteArray svg;
    /// The part of the grid that the symbol takes: 24 units high, as wide as it needs.
    QRectF box;
    /// Where the middle lines of upright (x) and level (y) strokes are that want to be crisp: from
    /// left to right and from top to bottom, at equal distances. The attributes data-stems-x and
    /// data-stems-y of the file.
    std::vector<qreal> stemsX;
    std::vector<qreal> stemsY;

    /// The drawing of a symbol, read once.
    static const SymbolDrawing& of(Symbol symbol);

    /// The symbol in opaque black on nothing, `pixelHeight` pixels (1 or more) high and as wide as
    /// its box wants, with maskMargin around it; `stroke` is the width of its strokes in units of
    /// the grid. Stems lie on whole pixels.
    QImage mask(int pixelHeight, qreal stroke) const;
};

} // namespace tolvar
