#pragma once

#include "Platform/Interfaces/Workspace.h"
#include "Platform/Linux/X11/ApplicationGrouping.h"
#include "Platform/Linux/X11/WindowFacts.h"

#include <optional>
#include <vector>

namespace tolvar {

/// A window of an application, as it stands at one moment.
struct DeskWindow {
    WindowFacts facts;
    WindowState state;
    ApplicationIdentity application;
    /// It is out of view by its user's or our will: minimised, not merely on another workspace.
    bool isHidden = false;

    bool operator==(const DeskWindow&) const = default;
};

/// The applications' windows on a desktop at one moment, without our own, in the order in which
/// they came.
struct Desk {
    std::vector<DeskWindow> windows;
    /// The window with the keyboard focus, of whatever kind; 0 for none.
    WindowId activeWindow = 0;

    std::vector<RunningApplication> applications() const;
    std::optional<RunningApplication> application(const QString& key) const;
    std::optional<RunningApplication> frontmost() const;
    std::vector<DeskWindow> windowsOf(const QString& key) const;
    /// The key of the application with the focus; empty when no application has it.
    QString activeApplication() const;

    bool operator==(const Desk&) const = default;
};

} // namespace tolvar
