#pragma once

#include "Platform/Interfaces/SystemLog.h"

namespace tolvar {

/// Nobody reads the log.
class NullSystemLog final : public SystemLog {
public:
    void error(const QString&, const QString&) override {}
};

} // namespace tolvar
