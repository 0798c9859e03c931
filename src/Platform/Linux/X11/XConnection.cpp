#include "Platform/Linux/X11/XConnection.h"

#include <QList>
#include <QStringConverter>

#include <poll.h>
#include <signal.h>
#include <xcb/res.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace tolvar {

namespace {

using namespace std::chrono;

constexpr std::array<std::string_view, 10> atomNames{
    "WM_STATE",
    "WM_CHANGE_STATE",
    "WM_CLIENT_LEADER",
    "_GTK_APPLICATION_ID",
    "_KDE_NET_WM_DESKTOP_FILE",
    "I3_SOCKET_PATH",
    "_TOLVAR_HIDDEN",
    "_XSETTINGS_S0",
    "_XSETTINGS_SETTINGS",
    "_COMPTON_SHADOW",
};

struct FreeReply {
    void operator()(void* reply) const { free(reply); }
};
template<typename T>
using Reply = std::unique_ptr<T, FreeReply>;

/// Waits for the answer to `cookie`; null for an error, which is dropped.
template<typename T, typename Cookie>
Reply<T> takeReply(T* (*read)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                   xcb_connection_t* connection, Cookie cookie) {
    xcb_generic_error_t* error = nullptr;
    Reply<T> reply(read(connection, cookie, &error));
    free(error);
    return reply;
}

QString decoded(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

} // namespace

std::vector<std::uint32_t> XProperty::words() const {
    if (format != 32 || bytes.isEmpty())
        return {};
    std::vector<std::uint32_t> words(static_cast<std::size_t>(bytes.size()) / 4);
    std::memcpy(words.data(), bytes.constData(), words.size() * 4);
    return words;
}

std::optional<std::uint32_t> XProperty::word() const {
    const auto all = words();
    return all.empty() ? std::nullopt : std::optional(all.front());
}

std::vector<QString> XProperty::texts() const {
    std::vector<QString> texts;
    if (format != 8 || bytes.isEmpty())
        return texts;
    for (const QByteArray& part : (bytes.endsWith('\0') ? bytes.chopped(1) : bytes).split('\0'))
        texts.push_back(decoded(part));
    return texts;
}

QString XProperty::text() const {
    const auto all = texts();
    return all.empty() ? QString() : all.front();
}

std::unique_ptr<XConnection> XConnection::open() {
    std::unique_ptr<XConnection> connection(new XConnection);
    return connection->connect() ? std::move(connection) : nullptr;
}

bool XConnection::connect() {
    // Writing to a server that has just gone would end this process.
    signal(SIGPIPE, SIG_IGN);
    int screenNumber = 0;
    xcb_connection_t* connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return false;
    }
    xcb_generic_error_t* error = nullptr;
    const bool knowsEwmh =
        xcb_ewmh_init_atoms_replies(&m_ewmh, xcb_ewmh_init_atoms(connection, &m_ewmh), &error);
    free(error);
    m_ewmh.connection = connection;
    if (!knowsEwmh)
        return false;
    m_root = m_ewmh.screens[screenNumber]->root;
    internAtoms();
    findResourceExtension();
    return isAlive();
}

XConnection::~XConnection() {
    if (!m_ewmh.connection)
        return;
    xcb_connection_t* connection = m_ewmh.connection;
    xcb_ewmh_connection_wipe(&m_ewmh);
    xcb_disconnect(connection);
}

void XConnection::internAtoms() {
    std::array<xcb_intern_atom_cookie_t, atomNames.size()> cookies;
    std::transform(atomNames.begin(), atomNames.end(), cookies.begin(), [&](auto name) {
        return xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    });
    std::transform(cookies.begin(), cookies.end(), m_atoms.begin(), [&](auto cookie) {
        const auto reply = takeReply(xcb_intern_atom_reply, get(), cookie);
        return reply ? reply->atom : xcb_atom_t(XCB_NONE);
    });
}

void XConnection::findResourceExtension() {
    const auto* extension = xcb_get_extension_data(get(), &xcb_res_id);
    if (!extension || !extension->present)
        return;
    const auto version =
        takeReply(xcb_res_query_version_reply, get(), xcb_res_query_version(get(), 1, 2));
    m_knowsProcesses = version && (version->server_major > 1 || version->server_minor >= 2);
}

bool XConnection::isAlive() const {
    return xcb_connection_has_error(get()) == 0;
}

xcb_get_property_cookie_t XConnection::ask(xcb_window_t window, xcb_atom_t property,
                                           std::uint32_t maximumWords) const {
    return xcb_get_property(get(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, maximumWords);
}

std::optional<XProperty> XConnection::take(xcb_get_property_cookie_t cookie) const {
    const auto reply = takeReply(xcb_get_property_reply, get(), cookie);
    if (!reply)
        return std::nullopt;
    return XProperty{reply->format,
                     QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                xcb_get_property_value_length(reply.get()))};
}

XProperty XConnection::read(xcb_window_t window, xcb_atom_t property,
                            std::uint32_t maximumWords) const {
    return take(ask(window, property, maximumWords)).value_or(XProperty());
}

xcb_window_t XConnection::selectionOwner(xcb_atom_t selection) const {
    const auto reply =
        takeReply(xcb_get_selection_owner_reply, get(), xcb_get_selection_owner(get(), selection));
    return reply ? reply->owner : xcb_window_t(XCB_NONE);
}

bool XConnection::isMapped(xcb_window_t window) const {
    const auto reply =
        takeReply(xcb_get_window_attributes_reply, get(), xcb_get_window_attributes(get(), window));
    return reply && reply->map_state != XCB_MAP_STATE_UNMAPPED;
}

std::vector<qint64> XConnection::localProcesses(const std::vector<xcb_window_t>& windows) const {
    std::vector<qint64> processes(windows.size());
    if (!m_knowsProcesses || windows.empty())
        return processes;
    // A resource's id is its client's base with bits of the mask, and the server answers with the
    // bases.
    const std::uint32_t clientBits = ~xcb_get_setup(get())->resource_id_mask;
    std::vector<xcb_res_client_id_spec_t> asked;
    for (const xcb_window_t window : windows)
        asked.push_back({window & clientBits, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID});
    const auto reply = takeReply(
        xcb_res_query_client_ids_reply, get(),
        xcb_res_query_client_ids(get(), static_cast<std::uint32_t>(asked.size()), asked.data()));
    if (!reply)
        return processes;
    for (auto each = xcb_res_query_client_ids_ids_iterator(reply.get()); each.rem > 0;
         xcb_res_client_id_value_next(&each)) {
        if (each.data->spec.mask != XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID ||
            xcb_res_client_id_value_value_length(each.data) < 1)
            continue;
        for (std::size_t i = 0; i < windows.size(); ++i)
            if ((windows[i] & clientBits) == (each.data->spec.client & clientBits))
                processes[i] = *xcb_res_client_id_value_value(each.data);
    }
    return processes;
}

QSize XConnection::desktopSize() const {
    const auto reply = takeReply(xcb_get_geometry_reply, get(), xcb_get_geometry(get(), root()));
    return reply ? QSize(reply->width, reply->height) : QSize();
}

std::vector<xcb_window_t> XConnection::topLevelWindows() const {
    const auto reply = takeReply(xcb_query_tree_reply, get(), xcb_query_tree(get(), root()));
    if (!reply)
        return {};
    const xcb_window_t* children = xcb_query_tree_children(reply.get());
    return {children, children + xcb_query_tree_children_length(reply.get())};
}

void XConnection::setWords(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                           const std::vector<std::uint32_t>& words) {
    xcb_change_property(get(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(words.size()), words.data());
}

void XConnection::setText(xcb_window_t window, XAtom property, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    xcb_change_property(get(), XCB_PROP_MODE_REPLACE, window, atom(property), m_ewmh.UTF8_STRING, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.constData());
}

void XConnection::removeProperty(xcb_window_t window, XAtom property) {
    xcb_delete_property(get(), window, atom(property));
}

void XConnection::map(xcb_window_t window) {
    xcb_map_window(get(), window);
}

xcb_window_t XConnection::createProbe() {
    const xcb_window_t window = xcb_generate_id(get());
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(get(), XCB_COPY_FROM_PARENT, window, m_root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    return window;
}

void XConnection::destroy(xcb_window_t window) {
    xcb_destroy_window(get(), window);
}

void XConnection::selectEvents(xcb_window_t window, std::uint32_t mask) {
    xcb_change_window_attributes(get(), window, XCB_CW_EVENT_MASK, &mask);
}

void XConnection::tellWindowManager(xcb_window_t window, xcb_atom_t type,
                                    const std::array<std::uint32_t, 5>& data) {
    xcb_ewmh_send_client_message(get(), window, m_root, type, sizeof data, data.data());
}

void XConnection::flush() {
    xcb_flush(get());
}

void XConnection::sync() {
    takeReply(xcb_get_input_focus_reply, get(), xcb_get_input_focus(get()));
}

bool XConnection::collectEvents() {
    const std::size_t before = m_events.size();
    while (Event event{xcb_poll_for_event(get())})
        if (event->response_type != 0)
            m_events.push_back(std::move(event));
    return m_events.size() > before;
}

XConnection::Event XConnection::nextEvent() {
    if (m_events.empty())
        collectEvents();
    if (m_events.empty())
        return nullptr;
    Event first = std::move(m_events.front());
    m_events.erase(m_events.begin());
    return first;
}

bool XConnection::hasQueuedEvents() {
    while (Event event{xcb_poll_for_queued_event(get())})
        if (event->response_type != 0)
            m_events.push_back(std::move(event));
    return !m_events.empty();
}

bool XConnection::waitUntil(const std::function<bool()>& done, milliseconds limit) {
    const auto deadline = steady_clock::now() + limit;
    flush();
    while (!done()) {
        const auto left = ceil<milliseconds>(deadline - steady_clock::now());
        if (left.count() <= 0 || !isAlive())
            return false;
        if (collectEvents())
            continue;
        pollfd waiting{fileDescriptor(), POLLIN, 0};
        poll(&waiting, 1, static_cast<int>(left.count()));
        collectEvents();
    }
    return true;
}

} // namespace tolvar
