#include "Platform/Linux/X11/HidingLedger.h"

#include <QUuid>

#include <xcb/xcb_icccm.h>

#include <algorithm>

namespace tolvar {

HidingLedger::HidingLedger(XConnection& connection, DeskReader& reader)
    : m_connection(connection)
    , m_reader(reader)
    , m_run(QUuid::createUuid().toString(QUuid::Id128)) {}

bool HidingLedger::isUntouched(const DeskWindow& window) const {
    const auto& marked = window.state.mark->userTime;
    return !marked || m_reader.userTime(window.facts.id) == marked;
}

/// A mark of this run is good as long as it stands, for it is dropped when its window shows. One
/// of an earlier run may have been left behind by a window that was shown and hidden again since.
bool HidingLedger::isOurDoing(const DeskWindow& window) const {
    return window.state.mark && m_reader.isPutAway(window) &&
           (window.state.mark->run == m_run || isUntouched(window));
}

bool HidingLedger::isOfEarlierRun(const DeskWindow& window) const {
    return isOurDoing(window) && window.state.mark->run != m_run;
}

std::vector<WindowId> HidingLedger::hide(const std::vector<DeskWindow>& windows) {
    std::vector<DeskWindow> shown;
    for (const DeskWindow& window : windows) {
        if (!window.isHidden)
            shown.push_back(window);
        else if (isOfEarlierRun(window))
            adopt(window);
    }
    if (shown.empty())
        return {};
    auto notHidden = m_reader.hider()->hide(shown, m_run);
    postpone(shown, notHidden);
    return notHidden;
}

void HidingLedger::postpone(const std::vector<DeskWindow>& windows,
                            const std::vector<WindowId>& notHidden) {
    for (const DeskWindow& window : windows) {
        const WindowId id = window.facts.id;
        const bool wasOutOfView = window.state.icccmState == XCB_ICCCM_WM_STATE_ICONIC;
        if (wasOutOfView && std::find(notHidden.begin(), notHidden.end(), id) != notHidden.end())
            m_postponed.insert(id);
    }
}

void HidingLedger::hidePostponed(const Desk& desk) {
    std::vector<DeskWindow> inView;
    std::set<WindowId> stillPostponed;
    for (const DeskWindow& window : desk.windows) {
        if (!m_postponed.contains(window.facts.id) || window.isHidden)
            continue;
        if (window.state.icccmState == XCB_ICCCM_WM_STATE_NORMAL)
            inView.push_back(window);
        else
            stillPostponed.insert(window.facts.id);
    }
    m_postponed = std::move(stillPostponed);
    if (!inView.empty())
        m_reader.hider()->hide(inView, m_run);
}

void HidingLedger::adopt(const DeskWindow& window) {
    HiddenMark mark = *window.state.mark;
    mark.run = m_run;
    m_connection.setText(window.facts.id, XAtom::tolvarHidden, mark.toText());
}

std::vector<WindowId> HidingLedger::showAndWait(const std::vector<DeskWindow>& windows) {
    if (windows.empty())
        return {};
    m_reader.hider()->show(windows);
    // A mark on a window that shows late would stay there: better wait a little longer for it.
    constexpr std::chrono::milliseconds patience{500};
    std::vector<WindowId> notShown;
    m_connection.waitUntil(
        [&] {
            notShown = m_reader.putAway(idsOf(windows));
            return notShown.empty();
        },
        patience);
    return notShown;
}

void HidingLedger::show(const std::vector<DeskWindow>& windows) {
    std::vector<DeskWindow> ours;
    for (const DeskWindow& window : windows)
        if (isOurDoing(window))
            ours.push_back(window);
    const auto notShown = showAndWait(ours);
    for (const DeskWindow& window : windows) {
        const WindowId id = window.facts.id;
        m_postponed.erase(id);
        if (window.state.mark && std::find(notShown.begin(), notShown.end(), id) == notShown.end())
            m_connection.removeProperty(window.facts.id, XAtom::tolvarHidden);
    }
}

void HidingLedger::letEarlierRunsSettle(const Desk& desk) {
    constexpr std::chrono::milliseconds patience{500};
    const bool mayBeUnderWay =
        std::any_of(desk.windows.begin(), desk.windows.end(), [this](const DeskWindow& window) {
            return window.state.mark && window.state.mark->run != m_run && !window.isHidden;
        });
    if (mayBeUnderWay && !std::exchange(m_isSettled, true))
        waitForWindowManager(m_connection, patience);
}

void HidingLedger::dropOutdatedMarks(const Desk& desk, const std::set<WindowId>& expected) {
    for (const DeskWindow& window : desk.windows)
        if (window.state.mark && !isOurDoing(window) && !expected.contains(window.facts.id))
            m_connection.removeProperty(window.facts.id, XAtom::tolvarHidden);
}

} // namespace tolvar
