#pragma once

#include <compare>

namespace tolvar {

/// A length of time in seconds; fractions count.
using Seconds = double;

/// A moment of wall-clock time, as seconds since 2001-01-01 00:00:00 UTC (fractions count, earlier
/// moments are negative). This is also the number a stored date is written as.
struct Date {
    Seconds sinceReference = 0;

    /// 2001-01-01 00:00:00 UTC in seconds since the Unix epoch.
    static constexpr Seconds referenceSinceEpoch = 978307200;

    /// The moment `seconds` after 1970-01-01 00:00:00 UTC.
    static constexpr Date fromEpoch(Seconds seconds) { return {seconds - referenceSinceEpoch}; }
    constexpr Seconds sinceEpoch() const { return sinceReference + referenceSinceEpoch; }

    constexpr auto operator<=>(const Date&) const = default;
    friend constexpr Date operator+(Date date, Seconds seconds) {
        return {date.sinceReference + seconds};
    }
    friend constexpr Date operator-(Date date, Seconds seconds) {
        return {date.sinceReference - seconds};
    }
    friend constexpr Seconds operator-(Date later, Date earlier) {
        return later.sinceReference - earlier.sinceReference;
    }
};

} // namespace tolvar
