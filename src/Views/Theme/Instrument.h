#pragma once

#include "Motion/Spring.h"

#include <QColor>
#include <QFont>

/// The window as an instrument: its colours, its springs and its letters. Everything that is drawn
/// takes them from here.
namespace tolvar::Instrument {

/// Opaque sRGB. Amber is the only saturated colour at rest; `stop` is for stop and delete alone,
/// `success` for a completed session alone.
namespace Palette {

inline constexpr QColor panel{14, 14, 15};
inline constexpr QColor well{10, 10, 11};
inline constexpr QColor field{9, 9, 10};
inline constexpr QColor label{237, 234, 228};
inline constexpr QColor labelSecondary{166, 163, 157};
inline constexpr QColor labelTertiary{122, 119, 114};
inline constexpr QColor labelQuaternary{94, 92, 88};
inline constexpr QColor labelDim{142, 138, 132};
inline constexpr QColor labelFaint{58, 57, 55};
inline constexpr QColor hairline{44, 44, 47};
inline constexpr QColor rule{5, 5, 5};
inline constexpr QColor headerTop{26, 26, 28};
inline constexpr QColor headerBottom{18, 18, 19};
inline constexpr QColor amber{255, 176, 32};
inline constexpr QColor amberInk{26, 18, 3};
inline constexpr QColor amberPlate{42, 33, 18};
inline constexpr QColor amberRim{87, 70, 36};
inline constexpr QColor stop{229, 72, 77};
inline constexpr QColor extend{201, 197, 190};
inline constexpr QColor lampOff{51, 52, 58};
inline constexpr QColor success{63, 191, 104};
inline constexpr QColor successInk{155, 196, 168};
inline constexpr QColor successPlate{17, 37, 24};
inline constexpr QColor successRim{42, 82, 54};
inline constexpr QColor raisedFaint{25, 25, 27};

} // namespace Palette

namespace Motion {

/// A key bottoms out: quick and nearly dead.
inline const Spring keyDown = Spring::withResponse(0.16, 0.8);
/// And comes back with a bounce.
inline const Spring keyUp = Spring::withResponse(0.36, 0.5);
inline const Spring latch = Spring::withResponse(0.3, 0.62);
inline const Spring scene = Spring::withResponse(0.5, 0.82);
inline const Spring swipeSettle = Spring::withResponse(0.34, 0.82);
inline const Spring listEdit = Spring::withResponse(0.35, 0.8);
/// The whole list goes.
inline const Spring listClear = Spring::withResponse(0.4, 0.85);

} // namespace Motion

/// The window's typeface, Inter where it is installed, else the system's sans serif. `size` in
/// points of the window (logical pixels), `tracking` the same, added behind every letter. Its
/// digits differ in width: a clock gives each a cell of its own.
QFont font(double size, QFont::Weight weight = QFont::Normal, double tracking = 0);

} // namespace tolvar::Instrument
