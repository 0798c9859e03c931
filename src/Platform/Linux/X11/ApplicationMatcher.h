#pragma once

#include "Platform/Linux/Desktop/DesktopEntries.h"
#include "Platform/Linux/X11/ProcessFacts.h"
#include "Platform/Linux/X11/WindowFacts.h"

#include <QHash>
#include <QString>

#include <functional>
#include <vector>

namespace tolvar {

/// Tells which desktop entry a window belongs to.
class ApplicationMatcher {
public:
    /// Looks a process up; asked only when the window alone does not tell.
    using ProcessLookup = std::function<ProcessFacts(qint64 processIdentifier)>;

    /// `entries` are sorted by id.
    ApplicationMatcher(std::vector<DesktopEntry> entries, ProcessLookup lookup);
    ApplicationMatcher(const ApplicationMatcher&) = delete;
    ApplicationMatcher& operator=(const ApplicationMatcher&) = delete;

    /// The entry of the window, or null. The first of these that holds: the window names the
    /// entry's id itself; StartupWMClass is one of the window's class names; a class name is the
    /// id, whatever the case; a class name is the last dot segment of the id, whatever the case;
    /// the process was started from the entry; the entry, and no other that menus show, starts
    /// the program that the process runs. Between entries that hold alike, ones that menus show
    /// here win, then the first by id. The pointer lives as long as the matcher.
    const DesktopEntry* match(const WindowFacts& window) const;

private:
    using Index = QHash<QString, const DesktopEntry*>;

    const DesktopEntry* matchNames(const WindowFacts& window) const;
    const DesktopEntry* matchProcess(const ProcessFacts& process) const;
    void indexPrograms();

    std::vector<DesktopEntry> m_entries;
    ProcessLookup m_lookup;
    Index m_byId;
    Index m_byStartupWmClass;
    Index m_byFoldedId;
    Index m_byLastSegment;
    /// Null for a program that several entries start.
    Index m_byProgram;
};

} // namespace tolvar
