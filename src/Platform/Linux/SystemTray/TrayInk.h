#pragma once

#include <QColor>

#include <optional>

namespace tolvar {

/// The colour that castle and countdown have in a tray. `offered` is the tray's own colour for
/// symbols, which is taken unless it is known to be unreadable; `background` what lies behind, as
/// far as it can be seen.
QColor trayInk(const std::optional<QColor>& offered, const std::optional<QColor>& background);

} // namespace tolvar
