#pragma once

#include "Platform/Interfaces/InstalledApplications.h"
#include "Platform/Linux/Desktop/DesktopEntries.h"

namespace tolvar {

/// The applications that the menus of this desktop show.
class XdgInstalledApplications final : public InstalledApplications {
public:
    explicit XdgInstalledApplications(DesktopEntries entries)
        : m_entries(std::move(entries)) {}

    std::vector<InstalledApplication> list() const override;

private:
    DesktopEntries m_entries;
};

} // namespace tolvar
