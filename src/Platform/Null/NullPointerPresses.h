#pragma once

#include "Platform/Interfaces/PointerPresses.h"

namespace tolvar {

/// Nobody tells of presses.
class NullPointerPresses final : public PointerPresses {
public:
    Subscription observe(Pressed) override { return {}; }
};

} // namespace tolvar
