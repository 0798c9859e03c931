#include "Platform/Linux/X11/TestDesktop.h"

#include <QCoreApplication>
#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <cstdlib>

namespace tolvar::test {

using namespace std::chrono;

TestDesktop::TestDesktop()
    : m_connection(XConnection::open()) {}

QString TestDesktop::windowManager() {
    return qEnvironmentVariable("TOLVAR_DESKTOP_WM");
}

bool TestDesktop::waitUntil(const std::function<bool()>& holds, milliseconds limit) {
    const auto deadline = steady_clock::now() + limit;
    while (!holds()) {
        if (steady_clock::now() > deadline)
            return false;
        QCoreApplication::processEvents();
        QThread::usleep(200);
    }
    return true;
}

bool TestDesktop::staysTrue(const std::function<bool()>& holds, milliseconds time) {
    return !waitUntil([&] { return !holds(); }, time);
}

xcb_atom_t TestDesktop::atom(const QByteArray& name) const {
    const auto cookie = xcb_intern_atom(m_connection->get(), 0,
                                        static_cast<std::uint16_t>(name.size()), name.constData());
    auto* reply = xcb_intern_atom_reply(m_connection->get(), cookie, nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_NONE);
    free(reply);
    return atom;
}

void TestDesktop::setWords(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                           const std::vector<std::uint32_t>& words) {
    xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(words.size()), words.data());
}

void TestDesktop::setText(xcb_window_t window, xcb_atom_t property, const QByteArray& text) {
    xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, window, property,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()),
                        text.constData());
}

void TestDesktop::tell(xcb_window_t window, xcb_atom_t type,
                       const std::array<std::uint32_t, 5>& data) {
    m_connection->tellWindowManager(window, type, data);
    m_connection->flush();
}

void TestDesktop::present(xcb_window_t window, const WindowLook& look) {
    const auto& ewmh = m_connection->ewmh();
    const QByteArray name = look.className.toUtf8();
    if (!name.isEmpty())
        setText(window, XCB_ATOM_WM_CLASS, name.toLower() + '\0' + name + '\0');
    setText(window, XCB_ATOM_WM_NAME, name);
    const QString machine = look.machine.isEmpty() ? QSysInfo::machineHostName() : look.machine;
    setText(window, XCB_ATOM_WM_CLIENT_MACHINE, machine.toUtf8());
    if (look.claimedProcess)
        setWords(window, ewmh._NET_WM_PID, XCB_ATOM_CARDINAL, {*look.claimedProcess});
    if (look.transientFor != XCB_NONE)
        setWords(window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, {look.transientFor});
    if (!look.type.isEmpty())
        setWords(window, ewmh._NET_WM_WINDOW_TYPE, XCB_ATOM_ATOM, {atom(look.type)});
    if (look.userTime)
        setWords(window, ewmh._NET_WM_USER_TIME, XCB_ATOM_CARDINAL, {*look.userTime});
    // InputHint, and whether the window takes the focus that it is given.
    setWords(window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS,
             {1, look.wantsFocus ? 1u : 0u, 0, 0, 0, 0, 0, 0, 0});
    map(window);
}

void TestDesktop::map(xcb_window_t window) {
    xcb_map_window(m_connection->get(), window);
    m_connection->flush();
}

xcb_window_t TestDesktop::open(ClientProcess& client, const WindowLook& look) {
    const xcb_window_t window = client.createWindow();
    present(window, look);
    // A window manager that is just starting may overlook a window.
    const auto isThere = [&] { return isManaged(window) && isSeen(window); };
    for (int attempt = 0; attempt < 5 && !waitUntil(isThere, seconds(2)); ++attempt) {
        xcb_unmap_window(m_connection->get(), window);
        map(window);
    }
    return window;
}

xcb_window_t TestDesktop::openActive(ClientProcess& client, const WindowLook& look) {
    const xcb_window_t window = open(client, look);
    activate(window);
    return window;
}

bool TestDesktop::isSeen(xcb_window_t window) const {
    auto* reply = xcb_get_window_attributes_reply(
        m_connection->get(), xcb_get_window_attributes(m_connection->get(), window), nullptr);
    const bool isSeen = reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    free(reply);
    return isSeen;
}

bool TestDesktop::isMinimised(xcb_window_t window) const {
    const auto states = m_connection->read(window, m_connection->ewmh()._NET_WM_STATE).words();
    return std::count(states.begin(), states.end(), m_connection->ewmh()._NET_WM_STATE_HIDDEN) > 0;
}

bool TestDesktop::isManaged(xcb_window_t window) const {
    const auto windows =
        m_connection->read(m_connection->root(), m_connection->ewmh()._NET_CLIENT_LIST).words();
    return std::count(windows.begin(), windows.end(), window) > 0;
}

bool TestDesktop::isMarked(xcb_window_t window) const {
    return !m_connection->read(window, m_connection->atom(XAtom::tolvarHidden)).bytes.isEmpty();
}

xcb_window_t TestDesktop::active() const {
    return m_connection->read(m_connection->root(), m_connection->ewmh()._NET_ACTIVE_WINDOW)
        .word()
        .value_or(0);
}

std::uint32_t TestDesktop::currentWorkspace() const {
    return m_connection->read(m_connection->root(), m_connection->ewmh()._NET_CURRENT_DESKTOP)
        .word()
        .value_or(0);
}

std::optional<std::uint32_t> TestDesktop::workspaceOf(xcb_window_t window) const {
    return m_connection->read(window, m_connection->ewmh()._NET_WM_DESKTOP).word();
}

QString TestDesktop::workspaceNameOf(xcb_window_t window) const {
    const auto names =
        m_connection->read(m_connection->root(), m_connection->ewmh()._NET_DESKTOP_NAMES).texts();
    const auto index = workspaceOf(window);
    return index && *index < names.size() ? names[*index] : QString();
}

void TestDesktop::requestActivate(xcb_window_t window) {
    tell(window, m_connection->ewmh()._NET_ACTIVE_WINDOW, {2, XCB_CURRENT_TIME, 0, 0, 0});
}

void TestDesktop::activate(xcb_window_t window) {
    requestActivate(window);
    waitUntil([&] { return active() == window && isSeen(window); });
}

void TestDesktop::requestMinimise(xcb_window_t window) {
    tell(window, m_connection->atom(XAtom::wmChangeState), {3, 0, 0, 0, 0});
}

void TestDesktop::minimise(xcb_window_t window) {
    requestMinimise(window);
    waitUntil([&] { return isMinimised(window) && !isSeen(window); });
}

void TestDesktop::goToWorkspace(std::uint32_t index) {
    tell(m_connection->root(), m_connection->ewmh()._NET_CURRENT_DESKTOP, {index, 0, 0, 0, 0});
    waitUntil([&] { return currentWorkspace() == index; });
}

void TestDesktop::moveToWorkspace(xcb_window_t window, std::uint32_t index) {
    tell(window, m_connection->ewmh()._NET_WM_DESKTOP, {index, 2, 0, 0, 0});
    waitUntil([&] { return workspaceOf(window) == index; });
}

void TestDesktop::setUserTime(xcb_window_t window, std::uint32_t time) {
    setWords(window, m_connection->ewmh()._NET_WM_USER_TIME, XCB_ATOM_CARDINAL, {time});
    sync();
}

void TestDesktop::setTitle(xcb_window_t window, const QByteArray& title) {
    setText(window, XCB_ATOM_WM_NAME, title);
    m_connection->flush();
}

void TestDesktop::setWorkspaceCount(std::uint32_t count) {
    const auto property = m_connection->ewmh()._NET_NUMBER_OF_DESKTOPS;
    tell(m_connection->root(), property, {count, 0, 0, 0, 0});
    waitUntil([&] {
        return m_connection->read(m_connection->root(), property).word().value_or(0) >= count;
    });
}

void TestDesktop::sync() const {
    free(xcb_get_input_focus_reply(m_connection->get(), xcb_get_input_focus(m_connection->get()),
                                   nullptr));
}

} // namespace tolvar::test
