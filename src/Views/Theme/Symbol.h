#pragma once

#include <QColor>
#include <QLatin1StringView>
#include <QRectF>
#include <QSizeF>

#include <span>

class QPainter;

namespace tolvar {

/// The symbols of the interface, drawn by one hand on a grid 24 units high. They are outlines;
/// filled are only those that say so.
enum class Symbol {
    appDashed,
    arrowCounterclockwise,
    bookmark,
    bookmarkFill,
    bookmarkSlash,
    checkmark,
    chevronLeft,
    chevronRight,
    clock,
    gearshape,
    globe,
    magnifyingglass,
    minus,
    pause,
    play,
    playCircle,
    playFill,
    plus,
    shield,
    speakerFill,
    speakerWave2,
    stop,
    trash,
    xmark,
    xmarkCircleFill,
};

/// How heavy the strokes of a symbol are, named like the weights of the text it stands beside.
enum class SymbolWeight { regular, medium, semibold, bold };

/// All symbols, in the order of their names.
std::span<const Symbol> allSymbols();

/// The name of a symbol's drawing, for example "xmark.circle.fill".
QLatin1StringView symbolName(Symbol symbol);

/// The space a symbol wants, in points, beside text of `pointSize` points. All are equally high
/// (24 points at 17); each is as wide as its own drawing and a little air.
QSizeF symbolSize(Symbol symbol, qreal pointSize);

/// Draws a symbol as large as fits into `box`, in its middle, in exactly the given colour. Its box
/// is moved to whole device pixels and its upright and level strokes are fitted to them, so that
/// it is crisp at every scale; smaller symbols have relatively heavier strokes. Under a painter
/// that turns, or enlarges beyond the device's own scale, as while something moves, it is drawn
/// smoothly instead. An empty box draws nothing. Belongs to the thread of the interface.
void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& box, const QColor& color,
                 SymbolWeight weight = SymbolWeight::regular);

} // namespace tolvar
