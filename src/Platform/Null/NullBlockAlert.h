#pragma once

#include "Platform/Interfaces/BlockAlert.h"

namespace tolvar {

/// Says nothing when something is blocked.
class NullBlockAlert final : public BlockAlert {
public:
    void presentBlocked(const QString&, BlockTarget) override {}
};

} // namespace tolvar
