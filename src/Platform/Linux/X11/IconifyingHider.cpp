#include "Platform/Linux/X11/IconifyingHider.h"

#include <xcb/xcb_icccm.h>

#include <algorithm>

namespace tolvar {

bool IconifyingHider::isHidden(const WindowState& state, const Workspaces&) const {
    // A shaded window may bear the hidden state without being minimised. WM_STATE would not tell
    // either: many window managers call a window on another workspace iconic.
    return state.isHidden && (!state.isShaded || state.mark);
}

bool IconifyingHider::isPutAway(const WindowState& state, const Workspaces& workspaces) const {
    return isHidden(state, workspaces);
}

void IconifyingHider::changeState(WindowId window, std::uint32_t icccmState) {
    connection().tellWindowManager(window, connection().atom(XAtom::wmChangeState),
                                   {icccmState, 0, 0, 0, 0});
}

void IconifyingHider::markAndHide(const std::vector<DeskWindow>& windows, const QString& run) {
    for (const DeskWindow& window : windows) {
        mark(window.facts.id, {run, {}, false, {}});
        changeState(window.facts.id, XCB_ICCCM_WM_STATE_ICONIC);
    }
}

bool IconifyingHider::isOutOfView(const WindowState& state, const Workspaces&) const {
    return state.isHidden || state.icccmState == XCB_ICCCM_WM_STATE_ICONIC;
}

void IconifyingHider::show(const std::vector<DeskWindow>& windows) {
    const WindowId former = activeWindow();
    std::vector<DeskWindow> deaf = windows;
    if (!m_wantsMapping) {
        const auto left = ask(windows);
        std::erase_if(deaf, [&](const DeskWindow& window) {
            return std::find(left.begin(), left.end(), window.facts.id) == left.end();
        });
        m_wantsMapping = deaf.size() == windows.size();
    }
    if (!deaf.empty())
        map(deaf);
    giveFocusBack(former);
}

/// The polite way, which leaves the focus and the workspaces alone. Returns who did not follow.
std::vector<WindowId> IconifyingHider::ask(const std::vector<DeskWindow>& windows) {
    const auto& ewmh = connection().ewmh();
    for (const DeskWindow& window : windows) {
        connection().tellWindowManager(window.facts.id, ewmh._NET_WM_STATE,
                                       {XCB_EWMH_WM_STATE_REMOVE, ewmh._NET_WM_STATE_HIDDEN, 0,
                                        XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER, 0});
        changeState(window.facts.id, XCB_ICCCM_WM_STATE_NORMAL);
    }
    return waitUntilShown(windows);
}

/// The way every window manager knows (ICCCM 4.1.4). Some bring the window to the workspace that
/// is looked at: it goes back to its own.
void IconifyingHider::map(const std::vector<DeskWindow>& windows) {
    for (const DeskWindow& window : windows)
        connection().map(window.facts.id);
    waitUntilShown(windows);
    const auto states = statesOf(idsOf(windows));
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto& home = windows[i].state.desktop;
        if (!home || !states[i] || states[i]->desktop == home)
            continue;
        connection().tellWindowManager(windows[i].facts.id, connection().ewmh()._NET_WM_DESKTOP,
                                       {*home, XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER, 0, 0, 0});
        waitFor({windows[i].facts.id},
                [&](const WindowState& state) { return state.desktop == home; });
    }
}

void IconifyingHider::giveFocusBack(WindowId former) {
    if (former == 0 || activeWindow() == former)
        return;
    const auto& ewmh = connection().ewmh();
    connection().tellWindowManager(former, ewmh._NET_ACTIVE_WINDOW,
                                   {XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER, XCB_CURRENT_TIME, 0, 0, 0});
    connection().waitUntil([&] { return activeWindow() == former; }, patience);
}

} // namespace tolvar
