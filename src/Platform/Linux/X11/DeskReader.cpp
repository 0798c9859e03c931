#include "Platform/Linux/X11/DeskReader.h"

#include "Platform/Linux/X11/UnmanagedHider.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace tolvar {

DeskReader::DeskReader(XConnection& connection, DesktopEntries entries)
    : m_connection(connection)
    , m_entries(std::move(entries))
    , m_reader(connection) {}

bool DeskReader::meetWindowManager() {
    auto manager = detectWindowManager(m_connection);
    if (manager != m_manager || !m_hider) {
        m_manager = std::move(manager);
        m_hider = m_manager ? makeHider(*m_manager, m_connection, m_reader)
                            : std::make_unique<UnmanagedHider>(m_connection, m_reader);
    }
    return m_manager && m_hider;
}

void DeskReader::forgetEntries() {
    m_known.clear();
    m_matcher.reset();
}

const ApplicationMatcher& DeskReader::matcher() {
    if (!m_matcher)
        m_matcher = std::make_unique<ApplicationMatcher>(m_entries.load(), readProcessFacts);
    return *m_matcher;
}

std::vector<WindowId> DeskReader::windowList(xcb_atom_t list) const {
    return m_connection.read(m_connection.root(), list).words();
}

/// What a window manager that is gone has left: its windows become children of the root again.
std::vector<WindowId> DeskReader::orphans() const {
    std::vector<WindowId> windows = m_connection.topLevelWindows();
    const auto states = m_reader.states(windows);
    std::vector<WindowId> managed;
    for (std::size_t i = 0; i < windows.size(); ++i)
        if (states[i] && states[i]->icccmState)
            managed.push_back(windows[i]);
    return managed;
}

WindowId DeskReader::activeWindow() const {
    return m_connection.read(m_connection.root(), m_connection.ewmh()._NET_ACTIVE_WINDOW)
        .word()
        .value_or(0);
}

MatchedWindow DeskReader::matched(const WindowFacts& facts) {
    MatchedWindow window{facts, {}, {}};
    if (facts.kind != WindowKind::application ||
        facts.processIdentifier == QCoreApplication::applicationPid())
        return window;
    if (const DesktopEntry* entry = matcher().match(facts)) {
        window.entryId = entry->id;
        window.entryName = entry->name;
    }
    return window;
}

/// What is known of a window is kept while it is there and calls itself the same.
void DeskReader::getToKnow(const std::vector<WindowId>& windows,
                           const std::vector<std::optional<WindowState>>& states) {
    std::map<WindowId, MatchedWindow> known;
    std::vector<WindowId> strangers;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto place = m_known.find(windows[i]);
        if (place != m_known.end() && states[i] &&
            states[i]->wmClass == place->second.facts.wmClass)
            known.insert(*place);
        else if (states[i])
            strangers.push_back(windows[i]);
    }
    for (const WindowFacts& facts : m_reader.facts(strangers))
        known.emplace(facts.id, matched(facts));
    m_known = std::move(known);
}

Desk DeskReader::look() {
    Desk desk;
    const auto& ewmh = m_connection.ewmh();
    const auto active = m_connection.ask(m_connection.root(), ewmh._NET_ACTIVE_WINDOW);
    const auto list = m_connection.ask(m_connection.root(), ewmh._NET_CLIENT_LIST);
    m_workspaces = readWorkspaces(m_connection);
    desk.activeWindow = m_connection.take(active).value_or(XProperty()).word().value_or(0);
    auto ids = m_connection.take(list).value_or(XProperty()).words();
    if (!m_manager) {
        desk.activeWindow = 0;
        ids = orphans();
    }
    const auto states = m_reader.states(ids);
    getToKnow(ids, states);
    std::vector<MatchedWindow> candidates;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const auto known = m_known.find(ids[i]);
        if (known == m_known.end() || known->second.facts.kind != WindowKind::application)
            continue;
        candidates.push_back(known->second);
        desk.windows.push_back(
            {known->second.facts, *states[i], {}, m_hider->isHidden(*states[i], m_workspaces)});
    }
    const auto applications = groupIntoApplications(candidates, QCoreApplication::applicationPid());
    for (std::size_t i = 0; i < candidates.size(); ++i)
        desk.windows[i].application = applications[i];
    std::erase_if(desk.windows, [](const DeskWindow& window) { return window.application.isOurs; });
    return desk;
}

bool DeskReader::isPutAway(const DeskWindow& window) const {
    return m_hider->isPutAway(window.state, m_workspaces);
}

std::vector<WindowId> DeskReader::putAway(const std::vector<WindowId>& windows) const {
    const auto states = m_reader.states(windows);
    const Workspaces workspaces = readWorkspaces(m_connection);
    std::vector<WindowId> found;
    for (std::size_t i = 0; i < windows.size(); ++i)
        if (states[i] && m_hider->isPutAway(*states[i], workspaces))
            found.push_back(windows[i]);
    return found;
}

std::optional<std::uint32_t> DeskReader::userTime(WindowId window) const {
    return m_reader.userTimes({window}).front();
}

bool DeskReader::hasMarkedWindows() const {
    const auto states = m_reader.states(windowList(m_connection.ewmh()._NET_CLIENT_LIST));
    return std::any_of(states.begin(), states.end(),
                       [](const auto& state) { return state && state->mark; });
}

std::vector<WindowId> DeskReader::ownShownWindows() {
    auto ids = windowList(m_connection.ewmh()._NET_CLIENT_LIST_STACKING);
    if (ids.empty())
        ids = windowList(m_connection.ewmh()._NET_CLIENT_LIST);
    m_workspaces = readWorkspaces(m_connection);
    const auto facts = m_reader.facts(ids);
    const auto states = m_reader.states(ids);
    std::vector<WindowId> shown;
    for (std::size_t i = 0; i < ids.size(); ++i)
        if (states[i] && facts[i].kind == WindowKind::application &&
            facts[i].processIdentifier == QCoreApplication::applicationPid() &&
            !m_hider->isHidden(*states[i], m_workspaces))
            shown.push_back(ids[i]);
    return shown;
}

} // namespace tolvar
