#pragma once

#include "Platform/Interfaces/StatusItemArt.h"
#include "Platform/Linux/StatusNotifier/StatusNotifierTypes.h"

#include <QString>

namespace tolvar {

/// The castle as it is sent to hosts, by name and as pictures, at one of a few steps of opacity.
///
/// A host loads, tints and scales whatever icon it is told of, so the pulse of a pause is told in
/// steps: each is a signal, a question and an answer, and twenty of them a second would keep bus
/// and panel busy. Four steps are two changes a second, and still say "waiting".
namespace StatusIcon {

/// From full to the dimmest; each has an icon of its own in the theme.
inline constexpr int stepCount = 4;

/// The step nearest to the opacity (0 to 1).
int stepFor(double opacity);
/// The opacity of a step.
double opacityOf(int step);
/// The icon's name in the theme, symbolic: hosts give it the colour of their text.
QString nameOf(int step);
/// For hosts that do not find the name: pictures of the usual sizes, light with a dark edge, for
/// the panel's colour is not known.
StatusIconPixmaps pixmaps(const StatusItemArt& art, int step);

} // namespace StatusIcon
} // namespace tolvar
