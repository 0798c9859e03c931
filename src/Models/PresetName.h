#pragma once

#include "Models/FocusSession.h"

#include <QLocale>

namespace tolvar {

/// What a preset saved from the session is called: its goal without surrounding white space; else
/// "Session " with the day and time it started, in the locale's manner ("Session Mar 4, 2025 at
/// 9:15 AM"); else "Saved Session".
QString presetName(const FocusSession& session, const QLocale& locale = QLocale());

} // namespace tolvar
