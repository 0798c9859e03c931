#pragma once

#include "Extensions/Date.h"

namespace tolvar {

/// The one source of "now" for every rule of time.
class Clock {
public:
    virtual ~Clock() = default;

    /// The present wall-clock time. It may be set back or jump forward between two readings.
    virtual Date now() const = 0;
};

} // namespace tolvar
