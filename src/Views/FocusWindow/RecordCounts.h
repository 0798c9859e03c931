#pragma once

#include <QWidget>

namespace tolvar {

class FocusManager;

/// What the presets and history tabs say: how much there is, and how the command line shows it.
/// Follow the manager, which outlives them.
QWidget* makePresetCount(FocusManager& focusManager);
QWidget* makeHistoryCount(FocusManager& focusManager);

} // namespace tolvar
