#pragma once

#include "Extensions/Date.h"

#include <QLocale>
#include <QString>

namespace tolvar {

/// When something was, as somebody says it at `now`, in the locale's spelling and on its clock of
/// 12 or 24 hours: "Today, 9:15 AM", "Yesterday, 9:15 AM", within the last 6 days "Tuesday,
/// 9:15 AM", else "Mar 4, 9:15 AM". Days are those of the user's calendar, however many hours they
/// have. A day that has not come yet is told by month and day.
QString relativeDate(Date date, Date now, const QLocale& locale = QLocale());

} // namespace tolvar
