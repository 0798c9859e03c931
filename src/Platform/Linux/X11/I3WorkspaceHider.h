#pragma once

#include "Platform/Linux/X11/I3Ipc.h"
#include "Platform/Linux/X11/WindowHider.h"

#include <memory>

namespace tolvar {

/// Hides windows on a workspace of their own; for i3, which knows no minimised windows.
class I3WorkspaceHider final : public WindowHider {
public:
    I3WorkspaceHider(XConnection& connection, const WindowReader& reader, I3Ipc ipc);

    bool isHidden(const WindowState& state, const Workspaces& workspaces) const override;
    bool isPutAway(const WindowState& state, const Workspaces& workspaces) const override;
    bool isOutOfView(const WindowState& state, const Workspaces& workspaces) const override;
    void show(const std::vector<DeskWindow>& windows) override;

private:
    void markAndHide(const std::vector<DeskWindow>& windows, const QString& run) override;

    I3Ipc m_ipc;
};

} // namespace tolvar
