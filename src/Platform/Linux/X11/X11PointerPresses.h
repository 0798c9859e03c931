#pragma once

#include "Platform/Interfaces/PointerPresses.h"

namespace tolvar {

/// Presses as the X server tells of them (raw events of the X Input Extension 2.1), which it does
/// also while another program holds the pointer. Each subscription has a connection of its own.
class X11PointerPresses final : public PointerPresses {
public:
    Subscription observe(Pressed pressed) override;
};

} // namespace tolvar
