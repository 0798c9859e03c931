#pragma once

#include "Extensions/Date.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace tolvar {

/// A moment on the user's wall clock. One beyond what a calendar can say is brought within.
QDateTime localTime(Date date);

/// The locale in which dates are written: the one given, but English for "C", which spells dates
/// for machines.
QLocale writtenLocale(const QLocale& locale);

/// What lies between the long and the all-digits form of a date that QLocale offers: "Mar 4, 2025".
QString mediumDate(const QDate& date, const QLocale& locale);
/// The same without the year: "Mar 4", "4. März".
QString monthAndDay(const QDate& date, const QLocale& locale);

} // namespace tolvar
