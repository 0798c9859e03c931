#include "Platform/Linux/X11/X11PanelWindows.h"

#include "Platform/Linux/X11/Struts.h"
#include "Platform/Linux/X11/WindowFacts.h"
#include "Platform/Linux/X11/XConnection.h"

#include <algorithm>

namespace tolvar {

namespace {

constexpr std::uint32_t addState = 1;

std::vector<xcb_atom_t> statesFor(const xcb_ewmh_connection_t& ewmh, PanelTraits traits) {
    std::vector<xcb_atom_t> states;
    if (traits.testFlag(PanelTrait::onEveryDesktop))
        states.push_back(ewmh._NET_WM_STATE_STICKY);
    if (traits.testFlag(PanelTrait::outOfTaskbar))
        states.insert(states.end(),
                      {ewmh._NET_WM_STATE_SKIP_TASKBAR, ewmh._NET_WM_STATE_SKIP_PAGER});
    if (traits.testFlag(PanelTrait::aboveOthers))
        states.push_back(ewmh._NET_WM_STATE_ABOVE);
    return states;
}

/// Before it is shown a window says of itself what it is to be.
void declare(XConnection& connection, xcb_window_t window, const std::vector<xcb_atom_t>& states,
             bool isOnEveryDesktop) {
    const auto& ewmh = connection.ewmh();
    auto all = connection.read(window, ewmh._NET_WM_STATE).words();
    for (const xcb_atom_t state : states)
        if (std::find(all.begin(), all.end(), state) == all.end())
            all.push_back(state);
    connection.setWords(window, ewmh._NET_WM_STATE, XCB_ATOM_ATOM, all);
    if (isOnEveryDesktop)
        connection.setWords(window, ewmh._NET_WM_DESKTOP, XCB_ATOM_CARDINAL,
                            {WindowState::everyDesktop});
}

/// Once it is shown, the window manager is asked.
void request(XConnection& connection, xcb_window_t window, const std::vector<xcb_atom_t>& states,
             bool isOnEveryDesktop) {
    const auto& ewmh = connection.ewmh();
    for (const xcb_atom_t state : states)
        connection.tellWindowManager(window, ewmh._NET_WM_STATE,
                                     {addState, state, 0, XCB_EWMH_CLIENT_SOURCE_TYPE_NORMAL, 0});
    if (isOnEveryDesktop)
        connection.tellWindowManager(
            window, ewmh._NET_WM_DESKTOP,
            {WindowState::everyDesktop, XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER, 0, 0, 0});
}

} // namespace

X11PanelWindows::X11PanelWindows(std::unique_ptr<XConnection> connection)
    : m_connection(std::move(connection)) {}

X11PanelWindows::~X11PanelWindows() = default;

std::unique_ptr<X11PanelWindows> X11PanelWindows::create() {
    auto connection = XConnection::open();
    return connection ? std::unique_ptr<X11PanelWindows>(new X11PanelWindows(std::move(connection)))
                      : nullptr;
}

/// The toolkit speaks to the server over a connection of its own: what it asks for afterwards is to
/// find the traits there.
void X11PanelWindows::setTraits(NativeWindow window, PanelTraits traits) {
    const auto id = static_cast<xcb_window_t>(window);
    const auto states = statesFor(m_connection->ewmh(), traits);
    if (traits.testFlag(PanelTrait::ownShadow))
        m_connection->setWords(id, m_connection->atom(XAtom::comptonShadow), XCB_ATOM_CARDINAL,
                               {0});
    const bool isOnEveryDesktop = traits.testFlag(PanelTrait::onEveryDesktop);
    if (m_connection->isMapped(id))
        request(*m_connection, id, states, isOnEveryDesktop);
    else
        declare(*m_connection, id, states, isOnEveryDesktop);
    m_connection->sync();
}

/// As a pager does it, whose wish counts however recently somebody typed elsewhere.
void X11PanelWindows::activate(NativeWindow window) {
    m_connection->tellWindowManager(static_cast<xcb_window_t>(window),
                                    m_connection->ewmh()._NET_ACTIVE_WINDOW,
                                    {XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER, XCB_CURRENT_TIME, 0, 0, 0});
    m_connection->flush();
}

bool X11PanelWindows::showsTranslucency() const {
    return m_connection->selectionOwner(m_connection->ewmh()._NET_WM_CM_Sn[0]) != XCB_NONE;
}

QRect X11PanelWindows::freeArea(const QRect& screen) const {
    const auto& ewmh = m_connection->ewmh();
    const auto windows = m_connection->read(m_connection->root(), ewmh._NET_CLIENT_LIST).words();
    std::vector<xcb_get_property_cookie_t> asked;
    for (const xcb_window_t window : windows)
        for (const xcb_atom_t property : {ewmh._NET_WM_STRUT_PARTIAL, ewmh._NET_WM_STRUT})
            asked.push_back(m_connection->ask(window, property, strutWords));
    std::vector<std::vector<std::uint32_t>> struts;
    for (const auto& cookie : asked)
        struts.push_back(m_connection->take(cookie).value_or(XProperty()).words());
    return areaBetween(struts, m_connection->desktopSize(), screen);
}

} // namespace tolvar
