#pragma once

#include "Platform/Linux/X11/WindowHider.h"

namespace tolvar {

/// Where no window manager runs: nothing can be hidden, but what was hidden under one that is gone
/// is made ready for the next to manage it as a shown window (ICCCM 4.1.3.1).
class UnmanagedHider final : public WindowHider {
public:
    using WindowHider::WindowHider;

    bool isHidden(const WindowState& state, const Workspaces& workspaces) const override;
    bool isPutAway(const WindowState& state, const Workspaces& workspaces) const override;
    bool isOutOfView(const WindowState& state, const Workspaces& workspaces) const override;
    void show(const std::vector<DeskWindow>& windows) override;

private:
    void markAndHide(const std::vector<DeskWindow>&, const QString&) override {}
    void setNormal(WindowId window);
};

} // namespace tolvar
