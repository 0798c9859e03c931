#pragma once

#include "Platform/Interfaces/InstalledApplications.h"

#include <utility>
#include <vector>

namespace tolvar::gallery {

/// What is installed: the same on every machine, with icons of this repository.
class SampleApplications final : public InstalledApplications {
public:
    enum class Icons { all, none };

    static std::vector<InstalledApplication> few(Icons icons = Icons::all);
    static std::vector<InstalledApplication> many();
    static std::vector<InstalledApplication> longNames();

    explicit SampleApplications(std::vector<InstalledApplication> applications)
        : m_applications(std::move(applications)) {}
    std::vector<InstalledApplication> list() const override { return m_applications; }

private:
    const std::vector<InstalledApplication> m_applications;
};

} // namespace tolvar::gallery
