#pragma once

#include "Views/Theme/Symbol.h"

#include <QString>

#include <array>

namespace tolvar {

/// The screens that the window shows while no session runs.
enum class FocusTab { start, presets, history };

/// In the order of the mode selector's slots.
inline constexpr std::array allFocusTabs{FocusTab::start, FocusTab::presets, FocusTab::history};

/// What the tab is called, to be seen in its tooltip and heard.
QString title(FocusTab tab);
Symbol symbol(FocusTab tab);

} // namespace tolvar
