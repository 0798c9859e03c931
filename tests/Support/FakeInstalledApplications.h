#pragma once

#include "Platform/Interfaces/InstalledApplications.h"

#include <vector>

namespace tolvar::test {

/// Applications that a test installs and removes.
class FakeInstalledApplications final : public InstalledApplications {
public:
    std::vector<InstalledApplication> applications;
    /// How often somebody has looked.
    mutable int looks = 0;

    /// One without an icon.
    void install(const QString& name) { applications.push_back({name.toLower(), name, {}}); }
    std::vector<InstalledApplication> list() const override {
        ++looks;
        return applications;
    }
};

} // namespace tolvar::test
