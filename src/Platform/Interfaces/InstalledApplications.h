#pragma once

#include <QString>

#include <vector>

namespace tolvar {

/// An application that can be chosen to be blocked.
struct InstalledApplication {
    /// The application's identifier, on a freedesktop system its desktop entry's id without
    /// ".desktop".
    QString bundleIdentifier;
    /// The name people see, in their language.
    QString displayName;
    /// The name of its icon in the icon theme, or an absolute path; may be empty.
    QString iconName;

    bool operator==(const InstalledApplication&) const = default;
};

/// The applications installed on this machine.
class InstalledApplications {
public:
    virtual ~InstalledApplications() = default;

    /// Every application a person can start here, sorted by display name in Unicode scalar order.
    /// Two entries may share a display name. Read afresh at each call.
    virtual std::vector<InstalledApplication> list() const = 0;
};

} // namespace tolvar
