#pragma once

#include "Platform/Linux/X11/WindowHider.h"

namespace tolvar {

/// Hides windows as their iconify button does (ICCCM 4.1.4); for every window manager that keeps
/// _NET_WM_STATE_HIDDEN.
class IconifyingHider final : public WindowHider {
public:
    using WindowHider::WindowHider;

    bool isHidden(const WindowState& state, const Workspaces& workspaces) const override;
    bool isPutAway(const WindowState& state, const Workspaces& workspaces) const override;
    bool isOutOfView(const WindowState& state, const Workspaces& workspaces) const override;
    void show(const std::vector<DeskWindow>& windows) override;

private:
    void markAndHide(const std::vector<DeskWindow>& windows, const QString& run) override;
    void changeState(WindowId window, std::uint32_t icccmState);
    std::vector<WindowId> ask(const std::vector<DeskWindow>& windows);
    void map(const std::vector<DeskWindow>& windows);
    void giveFocusBack(WindowId former);

    /// This window manager shows windows again only when they are mapped.
    bool m_wantsMapping = false;
};

} // namespace tolvar
