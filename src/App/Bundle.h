#pragma once

#include "Platform/Interfaces/BundleInfo.h"

namespace tolvar {

/// This program as it was built and where it stands; needs the QCoreApplication.
BundleInfo thisBundle();

} // namespace tolvar
