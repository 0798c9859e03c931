#include "Platform/Linux/X11/I3WorkspaceHider.h"

#include <QStringList>

#include <xcb/xcb_icccm.h>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

const QString& blockedWorkspace() {
    static const QString name = u"tolvar-blocked"_s;
    return name;
}

QString criterion(WindowId window) {
    return u"[id=%1] "_s.arg(window);
}

QString moveTo(WindowId window, const QString& workspace) {
    return criterion(window) + u"move --no-auto-back-and-forth container to workspace "_s +
           workspace;
}

} // namespace

I3WorkspaceHider::I3WorkspaceHider(XConnection& connection, const WindowReader& reader, I3Ipc ipc)
    : WindowHider(connection, reader)
    , m_ipc(std::move(ipc)) {}

bool I3WorkspaceHider::isHidden(const WindowState& state, const Workspaces& workspaces) const {
    // The scratchpad has no number. A window that has just opened may not have got one yet, and
    // a sticky one has none either, but both are in view.
    if (!state.desktop || state.desktop == WindowState::everyDesktop)
        return state.icccmState == XCB_ICCCM_WM_STATE_WITHDRAWN;
    return isPutAway(state, workspaces) && state.desktop != workspaces.current;
}

bool I3WorkspaceHider::isOutOfView(const WindowState& state, const Workspaces& workspaces) const {
    return isHidden(state, workspaces);
}

bool I3WorkspaceHider::isPutAway(const WindowState& state, const Workspaces& workspaces) const {
    return state.desktop && *state.desktop < workspaces.names.size() &&
           workspaces.names[*state.desktop] == blockedWorkspace();
}

void I3WorkspaceHider::markAndHide(const std::vector<DeskWindow>& windows, const QString& run) {
    const auto placements = m_ipc.placements();
    QStringList commands;
    bool isLookedAt = false;
    for (const DeskWindow& window : windows) {
        const WindowId id = window.facts.id;
        const auto placement = placements.find(id);
        if (placement == placements.end())
            continue;
        const auto& [workspace, isSticky] = placement->second;
        if (workspace == blockedWorkspace()) {
            isLookedAt = true;
            continue;
        }
        mark(id, {run, {}, isSticky, workspace});
        // A sticky window would follow to whatever workspace is looked at next.
        if (isSticky)
            commands << criterion(id) + u"sticky disable"_s;
        commands << moveTo(id, I3Ipc::quoted(blockedWorkspace()));
    }
    if (isLookedAt)
        commands << u"workspace back_and_forth"_s;
    // The commands take another way than the marks: these must have arrived.
    connection().sync();
    m_ipc.run(commands.join(u"; "_s));
}

void I3WorkspaceHider::show(const std::vector<DeskWindow>& windows) {
    const WindowId former = activeWindow();
    QStringList commands;
    for (const DeskWindow& window : windows) {
        const HiddenMark mark = window.state.mark.value_or(HiddenMark());
        commands << moveTo(window.facts.id,
                           mark.workspace.isEmpty() ? u"current"_s : I3Ipc::quoted(mark.workspace));
        if (mark.wasSticky)
            commands << criterion(window.facts.id) + u"sticky enable"_s;
    }
    if (former != 0)
        commands << criterion(former) + u"focus"_s;
    m_ipc.run(commands.join(u"; "_s));
    waitUntilShown(windows);
}

} // namespace tolvar
