#pragma once

#include "Platform/Linux/X11/WindowFacts.h"

#include <QString>

#include <vector>

namespace tolvar {

/// The application that a window belongs to.
struct ApplicationIdentity {
    /// Equal for the windows of one application, for as long as it runs.
    QString key;
    /// The name people see; empty when there is none.
    QString name;
    /// The desktop entry's id; empty when there is no entry.
    QString entryId;
    /// The application is this very program.
    bool isOurs = false;

    bool operator==(const ApplicationIdentity&) const = default;
};

/// A window and the desktop entry that it matches, if any.
struct MatchedWindow {
    WindowFacts facts;
    QString entryId;
    QString entryName;

    bool operator==(const MatchedWindow&) const = default;
};

/// Tells for each window which application it belongs to, in the order of `windows`.
///
/// A dialog belongs to the application of the window it is for, whichever process shows it. Other
/// windows belong to their desktop entry. One without an entry joins what its process, or else its
/// client, shows beside it when that is one application only; else the process, the client or the
/// class is an application of its own, with the class for a name. Windows of the process
/// `ownProcess` are ours.
std::vector<ApplicationIdentity> groupIntoApplications(const std::vector<MatchedWindow>& windows,
                                                       qint64 ownProcess);

} // namespace tolvar
