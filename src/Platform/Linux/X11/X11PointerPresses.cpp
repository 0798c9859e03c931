#include "Platform/Linux/X11/X11PointerPresses.h"

#include "Platform/Linux/X11/XConnection.h"

#include <QObject>
#include <QSocketNotifier>

#include <xcb/xinput.h>

#include <memory>
#include <optional>
#include <utility>

namespace tolvar {

namespace {

/// Buttons 4 to 7 are what a wheel or a touchpad scrolls with.
bool isScrolling(std::uint32_t button) {
    return button >= 4 && button <= 7;
}

/// One observer and its connection. Destroyed by deleteLater(), because its end may come from the
/// observer itself.
class PressWatch final : public QObject {
public:
    PressWatch(std::unique_ptr<XConnection> connection, PointerPresses::Pressed pressed)
        : m_connection(std::move(connection))
        , m_pressed(std::move(pressed))
        , m_notifier(m_connection->fileDescriptor(), QSocketNotifier::Read) {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                         [this] { readEvents(); });
    }

    void end() { m_notifier.setEnabled(false); }

    /// Whether the server has the extension.
    bool begin() {
        const auto* extension = xcb_get_extension_data(m_connection->get(), &xcb_input_id);
        if (!extension || !extension->present)
            return false;
        m_opcode = extension->major_opcode;
        free(xcb_input_xi_query_version_reply(
            m_connection->get(), xcb_input_xi_query_version(m_connection->get(), 2, 1), nullptr));
        struct {
            xcb_input_event_mask_t head;
            std::uint32_t mask;
        } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS};
        xcb_input_xi_select_events(m_connection->get(), m_connection->root(), 1, &selection.head);
        m_connection->flush();
        return true;
    }

private:
    void readEvents() {
        bool isPressed = false;
        while (const auto event = m_connection->nextEvent())
            isPressed = isPressed || isPress(*event);
        if (!m_connection->isAlive())
            m_notifier.setEnabled(false);
        if (const auto position = isPressed ? pointer() : std::nullopt)
            m_pressed(*position);
    }

    bool isPress(const xcb_generic_event_t& event) const {
        if ((event.response_type & 0x7f) != XCB_GE_GENERIC)
            return false;
        const auto& press = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
        return press.extension == m_opcode && press.event_type == XCB_INPUT_RAW_BUTTON_PRESS &&
               !isScrolling(press.detail);
    }

    /// Raw events do not say where.
    std::optional<QPoint> pointer() const {
        const auto cookie = xcb_query_pointer(m_connection->get(), m_connection->root());
        const std::unique_ptr<xcb_query_pointer_reply_t, decltype(&free)> reply(
            xcb_query_pointer_reply(m_connection->get(), cookie, nullptr), &free);
        if (!reply)
            return std::nullopt;
        return QPoint(reply->root_x, reply->root_y);
    }

    std::unique_ptr<XConnection> m_connection;
    PointerPresses::Pressed m_pressed;
    QSocketNotifier m_notifier;
    std::uint8_t m_opcode = 0;
};

} // namespace

Subscription X11PointerPresses::observe(Pressed pressed) {
    auto connection = XConnection::open();
    if (!connection)
        return {};
    auto watch = std::make_unique<PressWatch>(std::move(connection), std::move(pressed));
    if (!watch->begin())
        return {};
    return Subscription([watch = watch.release()] {
        watch->end();
        watch->deleteLater();
    });
}

} // namespace tolvar
