#include "Platform/Linux/X11/UnmanagedHider.h"

#include <xcb/xcb_icccm.h>

namespace tolvar {

/// The state that the last window manager left.
bool UnmanagedHider::isHidden(const WindowState& state, const Workspaces&) const {
    return state.isHidden || state.icccmState != XCB_ICCCM_WM_STATE_NORMAL;
}

bool UnmanagedHider::isPutAway(const WindowState& state, const Workspaces& workspaces) const {
    return isHidden(state, workspaces);
}

bool UnmanagedHider::isOutOfView(const WindowState& state, const Workspaces& workspaces) const {
    return isHidden(state, workspaces);
}

void UnmanagedHider::setNormal(WindowId window) {
    const auto& ewmh = connection().ewmh();
    const xcb_atom_t wmState = connection().atom(XAtom::wmState);
    connection().setWords(window, wmState, wmState, {XCB_ICCCM_WM_STATE_NORMAL, XCB_NONE});
    auto states = connection().read(window, ewmh._NET_WM_STATE).words();
    if (std::erase(states, ewmh._NET_WM_STATE_HIDDEN) > 0)
        connection().setWords(window, ewmh._NET_WM_STATE, XCB_ATOM_ATOM, states);
}

void UnmanagedHider::show(const std::vector<DeskWindow>& windows) {
    for (const DeskWindow& window : windows) {
        setNormal(window.facts.id);
        connection().map(window.facts.id);
    }
}

} // namespace tolvar
