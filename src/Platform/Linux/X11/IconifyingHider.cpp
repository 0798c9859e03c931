#include "Platform/Linux/X11/IconifyingHider.h"

#include <xcb/xcb_icccm.h>

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
        mark(window.facts.id, {run, window.state.userTime, false, {}});
        changeState(window.facts.id, XCB_ICCCM_WM_STATE_ICONIC);
    }
}

void IconifyingHider::show(const std::vector<DeskWindow>& windows) {
    const WindowId former = activeWindow();
    const auto& ewmh = connection().ewmh();
    for (const DeskWindow& window : windows) {
        connection().tellWindowManager(window.facts.id, ewmh._NET_WM_STATE,
                                       {XCB_EWMH_WM_STATE_REMOVE, ewmh._NET_WM_STATE_HIDDEN, 0,
                                        XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER, 0});
        changeState(window.facts.id, XCB_ICCCM_WM_STATE_NORMAL);
    }
    if (const auto deaf = waitUntilShown(windows); !deaf.empty()) {
        for (const WindowId window : deaf)
            connection().map(window);
        waitUntilShown(windows);
    }
    giveFocusBack(former);
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
