#include "Platform/Linux/X11/WindowReader.h"

#include <QCoreApplication>
#include <QSysInfo>

#include <xcb/xcb_icccm.h>

#include <algorithm>
#include <cstring>

namespace tolvar {

namespace {

bool contains(const std::vector<std::uint32_t>& values, std::uint32_t value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

/// The group of WM_HINTS (ICCCM 4.1.2.4), or 0.
WindowId groupOf(const XProperty& hints) {
    constexpr std::size_t groupField = 8;
    const auto words = hints.words();
    const bool hasGroup =
        words.size() > groupField && (words[0] & XCB_ICCCM_WM_HINT_WINDOW_GROUP) != 0;
    return hasGroup ? words[groupField] : 0;
}

WindowClass classOf(const XProperty& property) {
    const auto names = property.texts();
    if (names.empty())
        return {};
    return {names.front(), names.size() > 1 ? names[1] : names.front()};
}

} // namespace

WindowReader::WindowReader(const XConnection& connection)
    : m_connection(connection)
    , m_hostName(QSysInfo::machineHostName()) {
    const auto& ewmh = connection.ewmh();
    m_furnitureTypes = {ewmh._NET_WM_WINDOW_TYPE_DESKTOP,
                        ewmh._NET_WM_WINDOW_TYPE_DOCK,
                        ewmh._NET_WM_WINDOW_TYPE_SPLASH,
                        ewmh._NET_WM_WINDOW_TYPE_NOTIFICATION,
                        ewmh._NET_WM_WINDOW_TYPE_DROPDOWN_MENU,
                        ewmh._NET_WM_WINDOW_TYPE_POPUP_MENU,
                        ewmh._NET_WM_WINDOW_TYPE_TOOLTIP,
                        ewmh._NET_WM_WINDOW_TYPE_COMBO,
                        ewmh._NET_WM_WINDOW_TYPE_DND};
    m_applicationTypes = {ewmh._NET_WM_WINDOW_TYPE_NORMAL, ewmh._NET_WM_WINDOW_TYPE_DIALOG,
                          ewmh._NET_WM_WINDOW_TYPE_UTILITY, ewmh._NET_WM_WINDOW_TYPE_TOOLBAR,
                          ewmh._NET_WM_WINDOW_TYPE_MENU};
}

template<std::size_t N>
std::vector<WindowReader::Cookies<N>>
WindowReader::askAll(const std::vector<WindowId>& windows,
                     const std::array<xcb_atom_t, N>& properties) const {
    std::vector<Cookies<N>> cookies(windows.size());
    for (std::size_t i = 0; i < windows.size(); ++i)
        std::transform(properties.begin(), properties.end(), cookies[i].begin(),
                       [&](xcb_atom_t property) { return m_connection.ask(windows[i], property); });
    return cookies;
}

template<std::size_t N>
std::optional<std::array<XProperty, N>> WindowReader::takeAll(const Cookies<N>& cookies) const {
    std::array<XProperty, N> properties;
    bool isThere = true;
    for (std::size_t i = 0; i < N; ++i) {
        const auto property = m_connection.take(cookies[i]);
        isThere = isThere && property;
        properties[i] = property.value_or(XProperty());
    }
    return isThere ? std::optional(properties) : std::nullopt;
}

/// A window names its types with the best one first (EWMH); ones that nobody knows are skipped.
WindowKind WindowReader::kind(const XProperty& types) const {
    for (const std::uint32_t type : types.words()) {
        if (contains(m_furnitureTypes, type))
            return WindowKind::furniture;
        if (contains(m_applicationTypes, type))
            break;
    }
    return WindowKind::application;
}

/// What the server says of the connection is proof, but it may be the near end of a tunnel. What
/// the window says of itself counts only beside the name of this machine. We know ourselves in any
/// case, for a machine may change its name.
qint64 WindowReader::processBehind(qint64 local, const XProperty& claimed,
                                   const XProperty& machine) const {
    if (local == QCoreApplication::applicationPid())
        return local;
    const QString host = machine.text();
    if (local != 0)
        return host.isEmpty() || host == m_hostName ? local : 0;
    return host == m_hostName ? claimed.word().value_or(0) : 0;
}

std::vector<WindowFacts> WindowReader::facts(const std::vector<WindowId>& windows) const {
    const auto& ewmh = m_connection.ewmh();
    const auto cookies =
        askAll<9>(windows, {XCB_ATOM_WM_CLASS, m_connection.atom(XAtom::gtkApplicationId),
                            m_connection.atom(XAtom::kdeDesktopFile), ewmh._NET_WM_PID,
                            XCB_ATOM_WM_CLIENT_MACHINE, XCB_ATOM_WM_TRANSIENT_FOR,
                            m_connection.atom(XAtom::wmClientLeader), XCB_ATOM_WM_HINTS,
                            ewmh._NET_WM_WINDOW_TYPE});
    const auto processes = m_connection.localProcesses(windows);
    std::vector<WindowFacts> facts;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        WindowFacts& window = facts.emplace_back();
        window.id = windows[i];
        const auto properties = takeAll(cookies[i]);
        if (!properties)
            continue;
        const auto& [wmClass, gtkId, kdeFile, pid, machine, transientFor, leader, hints, types] =
            *properties;
        window.wmClass = classOf(wmClass);
        window.applicationId = gtkId.text().isEmpty() ? kdeFile.text() : gtkId.text();
        window.transientFor = transientFor.word().value_or(0);
        window.leader = leader.word().value_or(groupOf(hints));
        window.kind = kind(types);
        window.processIdentifier = processBehind(processes[i], pid, machine);
    }
    return facts;
}

std::vector<std::optional<WindowState>>
WindowReader::states(const std::vector<WindowId>& windows) const {
    const auto& ewmh = m_connection.ewmh();
    const auto cookies = askAll<5>(
        windows, {m_connection.atom(XAtom::wmState), ewmh._NET_WM_STATE, ewmh._NET_WM_DESKTOP,
                  m_connection.atom(XAtom::tolvarHidden), XCB_ATOM_WM_CLASS});
    std::vector<std::optional<WindowState>> states;
    for (const auto& asked : cookies) {
        auto& state = states.emplace_back();
        const auto properties = takeAll(asked);
        if (!properties)
            continue;
        const auto& [icccmState, netStates, desktop, mark, wmClass] = *properties;
        const auto flags = netStates.words();
        state = WindowState{icccmState.word(),
                            contains(flags, ewmh._NET_WM_STATE_HIDDEN),
                            contains(flags, ewmh._NET_WM_STATE_SHADED),
                            desktop.word(),
                            HiddenMark::fromText(mark.text()),
                            classOf(wmClass)};
    }
    return states;
}

std::vector<std::optional<std::uint32_t>>
WindowReader::userTimes(const std::vector<WindowId>& windows) const {
    const auto& ewmh = m_connection.ewmh();
    // Some clients keep the time on a window of its own, so that its changes wake nobody else.
    std::vector<WindowId> bearers = windows;
    const auto apart = askAll<1>(windows, {ewmh._NET_WM_USER_TIME_WINDOW});
    for (std::size_t i = 0; i < windows.size(); ++i)
        if (const auto window = takeAll(apart[i]))
            bearers[i] = window->front().word().value_or(windows[i]);
    std::vector<std::optional<std::uint32_t>> times;
    for (const auto& asked : askAll<1>(bearers, {ewmh._NET_WM_USER_TIME})) {
        const auto time = takeAll(asked);
        times.push_back(time ? time->front().word() : std::nullopt);
    }
    return times;
}

} // namespace tolvar
