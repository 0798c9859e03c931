#pragma once

#include "Platform/Linux/X11/DeskReader.h"
#include "Platform/Linux/X11/XConnection.h"

#include <QString>

#include <set>
#include <vector>

namespace tolvar {

/// Hides windows and shows exactly those again, by the marks on them (see HiddenMark).
class HidingLedger {
public:
    HidingLedger(XConnection& connection, DeskReader& reader);

    /// Marks and hides the shown windows among `windows`; what an earlier run hid of them is ours
    /// from now on. Returns the windows that are not hidden yet.
    std::vector<WindowId> hide(const std::vector<DeskWindow>& windows);
    /// Shows again what we hid among `windows`, and takes our marks off all of them but those that
    /// could not be shown: by these they are found later.
    void show(const std::vector<DeskWindow>& windows);

    /// Waits where an earlier run may have ended before what it asked for was done. To be called
    /// before `dropOutdatedMarks` is first; the windows are to be looked at again after it.
    void letEarlierRunsSettle(const Desk& desk);

    /// Hides windows that were out of view when they were to be hidden, which the window manager
    /// took no note of, and that have come into view since.
    void hidePostponed(const Desk& desk);
    /// Takes the marks off windows that are not hidden by us any more: they are shown, or their
    /// users have had them in hand. A mark left behind would show a window one day against the
    /// will of a user who minimised it. The windows `expected` are about to be hidden.
    void dropOutdatedMarks(const Desk& desk, const std::set<WindowId>& expected);

    /// Whether a former run hid the window and nobody showed it since.
    bool isOfEarlierRun(const DeskWindow& window) const;

private:
    bool isOurDoing(const DeskWindow& window) const;
    /// Whether a marked window has not been in its user's hands since.
    bool isUntouched(const DeskWindow& window) const;
    /// Shows windows; returns those that stay put away all the same.
    std::vector<WindowId> showAndWait(const std::vector<DeskWindow>& windows);
    void adopt(const DeskWindow& window);
    void postpone(const std::vector<DeskWindow>& windows, const std::vector<WindowId>& notHidden);

    XConnection& m_connection;
    DeskReader& m_reader;
    /// Names this run in the marks.
    QString m_run;
    std::set<WindowId> m_postponed;
    bool m_isSettled = false;
};

} // namespace tolvar
