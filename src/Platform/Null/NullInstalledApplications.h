#pragma once

#include "Platform/Interfaces/InstalledApplications.h"

namespace tolvar {

/// No application is known to be installed.
class NullInstalledApplications final : public InstalledApplications {
public:
    std::vector<InstalledApplication> list() const override { return {}; }
};

} // namespace tolvar
