#pragma once

#include "Platform/Interfaces/Clock.h"

namespace tolvar {

/// The system's wall clock, to the microsecond or better.
class SystemClock final : public Clock {
public:
    Date now() const override;
};

} // namespace tolvar
