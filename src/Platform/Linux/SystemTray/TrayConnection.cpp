#include "Platform/Linux/SystemTray/TrayConnection.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace tolvar {

namespace {

/// Of the first screen, which is the only one of any X server today.
constexpr std::array<std::string_view, 7> atomNames{
    "_NET_SYSTEM_TRAY_S0",
    "_NET_SYSTEM_TRAY_OPCODE",
    "_NET_SYSTEM_TRAY_VISUAL",
    "_NET_SYSTEM_TRAY_COLORS",
    "MANAGER",
    "_XEMBED_INFO",
    "_NET_WM_CM_S0",
};

} // namespace

std::shared_ptr<TrayConnection> TrayConnection::open() {
    auto server = XConnection::open();
    if (!server)
        return nullptr;
    return std::shared_ptr<TrayConnection>(new TrayConnection(std::move(server)));
}

TrayConnection::TrayConnection(std::unique_ptr<XConnection> server)
    : m_server(std::move(server))
    , m_notifier(m_server->fileDescriptor(), QSocketNotifier::Read) {
    internAtoms();
    // A tray that comes announces itself to whoever listens to the root (ICCCM 2.8).
    m_server->selectEvents(m_server->root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    findManager();
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [this] { readEvents(); });
}

TrayConnection::~TrayConnection() = default;

void TrayConnection::internAtoms() {
    std::array<xcb_intern_atom_cookie_t, atomNames.size()> cookies;
    std::transform(atomNames.begin(), atomNames.end(), cookies.begin(), [&](auto name) {
        return xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    });
    std::transform(cookies.begin(), cookies.end(), m_atoms.begin(), [&](auto cookie) {
        auto* reply = xcb_intern_atom_reply(get(), cookie, nullptr);
        const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_NONE);
        free(reply);
        return atom;
    });
}

xcb_window_t TrayConnection::ownerOf(xcb_atom_t selection) const {
    auto* reply =
        xcb_get_selection_owner_reply(get(), xcb_get_selection_owner(get(), selection), nullptr);
    const xcb_window_t window = reply ? reply->owner : xcb_window_t(XCB_NONE);
    free(reply);
    return window;
}

/// The order leaves no gap: an owner that goes before its end is listened for is none any more when
/// it is asked for again.
bool TrayConnection::findManager() {
    xcb_window_t found = ownerOf(atom(TrayAtom::selection));
    if (found != XCB_NONE && found != m_manager) {
        m_server->selectEvents(found, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        found = ownerOf(atom(TrayAtom::selection));
    }
    return std::exchange(m_manager, found) != found;
}

bool TrayConnection::isNewsOfManager(const xcb_generic_event_t& event) const {
    const int type = event.response_type & 0x7f;
    if (type == XCB_DESTROY_NOTIFY)
        return reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == m_manager;
    if (type != XCB_CLIENT_MESSAGE)
        return false;
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
    return message.type == atom(TrayAtom::manager) &&
           message.data.data32[1] == atom(TrayAtom::selection);
}

void TrayConnection::readEvents() {
    const auto alive = shared_from_this();
    while (const auto event = m_server->nextEvent()) {
        if (isNewsOfManager(*event) && findManager())
            m_observers.call(&Observer::managerChanged);
        m_observers.tell([&](const Observer& observer) {
            if (observer.happened)
                observer.happened(*event);
        });
    }
    if (m_server->isAlive()) {
        m_server->flush();
        return;
    }
    m_notifier.setEnabled(false);
    if (std::exchange(m_manager, xcb_window_t(XCB_NONE)) != XCB_NONE)
        m_observers.call(&Observer::managerChanged);
}

void TrayConnection::readEventsSoon() {
    m_server->flush();
    if (m_isReadingDue || !m_server->hasQueuedEvents())
        return;
    m_isReadingDue = true;
    QMetaObject::invokeMethod(
        &m_notifier,
        [this] {
            m_isReadingDue = false;
            readEvents();
        },
        Qt::QueuedConnection);
}

} // namespace tolvar
