#include "Platform/Linux/X11/XSettingsWatch.h"

#include <utility>

namespace tolvar {

XSettingsWatch::XSettingsWatch(std::unique_ptr<XConnection> connection,
                               std::function<void()> changed)
    : m_connection(std::move(connection))
    , m_changed(std::move(changed))
    , m_notifier(m_connection->fileDescriptor(), QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [this] { readEvents(); });
    // A new manager is announced to who wants to know of the root's structure (ICCCM 2.8).
    m_connection->selectEvents(m_connection->root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    meetManager();
    readEventsSoon();
}

/// Who leaves or takes over in between is noticed: the root is watched before the manager is asked
/// for, and the manager before its settings are.
void XSettingsWatch::meetManager() {
    const auto owner = m_connection->selectionOwner(m_connection->atom(XAtom::xSettingsSelection));
    if (owner != m_manager) {
        if (m_manager != XCB_NONE)
            m_connection->selectEvents(m_manager, XCB_EVENT_MASK_NO_EVENT);
        if (owner != XCB_NONE)
            m_connection->selectEvents(owner, XCB_EVENT_MASK_PROPERTY_CHANGE |
                                                  XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        m_manager = owner;
    }
    if (m_manager == XCB_NONE)
        return m_connection->flush();
    const auto settings =
        m_connection->read(m_manager, m_connection->atom(XAtom::xSettingsSettings));
    // A manager may take its place before it has anything to say.
    if (!settings.bytes.isEmpty())
        m_settings = settings.bytes;
}

void XSettingsWatch::readEvents() {
    bool isAnyNews = false;
    while (const auto event = m_connection->nextEvent())
        isAnyNews = takeNews(*event) || isAnyNews;
    if (isAnyNews) {
        meetManager();
        readEventsSoon();
    }
    if (!m_connection->isAlive())
        m_notifier.setEnabled(false);
    if (isAnyNews)
        m_changed();
}

/// Events that were read while an answer was awaited wake nobody any more.
void XSettingsWatch::readEventsSoon() {
    if (m_connection->hasQueuedEvents())
        QMetaObject::invokeMethod(
            &m_notifier, [this] { readEvents(); }, Qt::QueuedConnection);
}

bool XSettingsWatch::takeNews(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7f;
    if (type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        return change.window == m_manager &&
               change.atom == m_connection->atom(XAtom::xSettingsSettings);
    }
    if (type == XCB_DESTROY_NOTIFY) {
        const auto& end = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
        if (end.window != m_manager)
            return false;
        // The next one's window may have the same number.
        m_manager = XCB_NONE;
        return true;
    }
    if (type != XCB_CLIENT_MESSAGE)
        return false;
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
    return message.type == m_connection->ewmh().MANAGER &&
           message.data.data32[1] == m_connection->atom(XAtom::xSettingsSelection);
}

} // namespace tolvar
