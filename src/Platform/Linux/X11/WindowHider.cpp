#include "Platform/Linux/X11/WindowHider.h"

#include <algorithm>

namespace tolvar {

Workspaces readWorkspaces(const XConnection& connection) {
    const auto& ewmh = connection.ewmh();
    const auto names = connection.ask(connection.root(), ewmh._NET_DESKTOP_NAMES);
    const auto current = connection.ask(connection.root(), ewmh._NET_CURRENT_DESKTOP);
    Workspaces workspaces;
    workspaces.names = connection.take(names).value_or(XProperty()).texts();
    workspaces.current = connection.take(current).value_or(XProperty()).word();
    return workspaces;
}

std::vector<WindowId> idsOf(const std::vector<DeskWindow>& windows) {
    std::vector<WindowId> ids;
    for (const DeskWindow& window : windows)
        ids.push_back(window.facts.id);
    return ids;
}

WindowHider::WindowHider(XConnection& connection, const WindowReader& reader)
    : m_connection(connection)
    , m_reader(reader) {}

std::vector<WindowId> WindowHider::hide(const std::vector<DeskWindow>& windows,
                                        const QString& run) {
    markAndHide(windows, run);
    waitFor(idsOf(windows), [this](const WindowState& state) {
        return isOutOfView(state, readWorkspaces(m_connection));
    });
    addUserTimes(windows);
    const Workspaces workspaces = readWorkspaces(m_connection);
    std::vector<WindowId> ids = idsOf(windows);
    const auto states = m_reader.states(ids);
    std::vector<WindowId> notHidden;
    for (std::size_t i = 0; i < ids.size(); ++i)
        if (states[i] && !isHidden(*states[i], workspaces))
            notHidden.push_back(ids[i]);
    return notHidden;
}

/// The times are asked for only now, for they would delay the hiding.
void WindowHider::addUserTimes(const std::vector<DeskWindow>& windows) {
    const auto ids = idsOf(windows);
    const auto times = m_reader.userTimes(ids);
    const auto states = m_reader.states(ids);
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (!times[i] || !states[i] || !states[i]->mark)
            continue;
        HiddenMark complete = *states[i]->mark;
        complete.userTime = times[i];
        mark(ids[i], complete);
    }
}

void WindowHider::mark(WindowId window, const HiddenMark& mark) {
    m_connection.setText(window, XAtom::tolvarHidden, mark.toText());
}

std::vector<WindowId>
WindowHider::waitFor(std::vector<WindowId> windows,
                     const std::function<bool(const WindowState&)>& isFine) const {
    const auto dropFineOnes = [&] {
        const auto states = m_reader.states(windows);
        std::vector<WindowId> rest;
        for (std::size_t i = 0; i < windows.size(); ++i)
            if (states[i] && !isFine(*states[i]))
                rest.push_back(windows[i]);
        windows = std::move(rest);
        return windows.empty();
    };
    m_connection.waitUntil(dropFineOnes, patience);
    return windows;
}

std::vector<WindowId> WindowHider::waitUntilShown(const std::vector<DeskWindow>& windows) const {
    return waitFor(idsOf(windows), [this](const WindowState& state) {
        return !isPutAway(state, readWorkspaces(m_connection));
    });
}

std::vector<std::optional<WindowState>>
WindowHider::statesOf(const std::vector<WindowId>& windows) const {
    return m_reader.states(windows);
}

WindowId WindowHider::activeWindow() const {
    return m_connection.read(m_connection.root(), m_connection.ewmh()._NET_ACTIVE_WINDOW)
        .word()
        .value_or(0);
}

} // namespace tolvar
