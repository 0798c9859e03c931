#include "Platform/Linux/X11/FakeSettingsManager.h"

namespace tolvar::test {

FakeSettingsManager::FakeSettingsManager()
    : m_connection(XConnection::open())
    , m_window(m_connection->createProbe())
    , m_otherWindow(m_connection->createProbe()) {}

void FakeSettingsManager::appear() {
    xcb_set_selection_owner(m_connection->get(), m_window,
                            m_connection->atom(XAtom::xSettingsSelection), XCB_CURRENT_TIME);
    announce();
}

/// ICCCM 2.8.
void FakeSettingsManager::announce() {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = m_connection->root();
    message.type = m_connection->ewmh().MANAGER;
    message.data.data32[0] = XCB_CURRENT_TIME;
    message.data.data32[1] = m_connection->atom(XAtom::xSettingsSelection);
    message.data.data32[2] = m_window;
    xcb_send_event(m_connection->get(), 0, m_connection->root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    m_connection->sync();
}

void FakeSettingsManager::publish(const QByteArray& settings) {
    const auto property = m_connection->atom(XAtom::xSettingsSettings);
    xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, m_window, property, property, 8,
                        static_cast<std::uint32_t>(settings.size()), settings.constData());
    m_connection->sync();
}

void FakeSettingsManager::leave() {
    m_connection->destroy(m_window);
    m_connection->sync();
}

void FakeSettingsManager::chat() {
    const auto property = m_connection->ewmh()._NET_WM_NAME;
    for (const xcb_window_t window : {m_otherWindow, m_connection->root()})
        m_connection->setWords(window, property, XCB_ATOM_CARDINAL, {1});
    m_connection->sync();
}

} // namespace tolvar::test
