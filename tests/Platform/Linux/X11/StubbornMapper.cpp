#include "Platform/Linux/X11/StubbornMapper.h"

#include <poll.h>

#include <cstdlib>

namespace tolvar::test {

StubbornMapper::StubbornMapper(xcb_window_t window, int times)
    : m_connection(xcb_connect(nullptr, nullptr)) {
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
    free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    m_thread = std::thread([this, window, times] { work(window, times); });
}

StubbornMapper::~StubbornMapper() {
    m_isOver = true;
    m_thread.join();
    xcb_disconnect(m_connection);
}

void StubbornMapper::work(xcb_window_t window, int times) {
    constexpr int pollMilliseconds = 20;
    while (!m_isOver) {
        pollfd waiting{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        poll(&waiting, 1, pollMilliseconds);
        while (auto* event = xcb_poll_for_event(m_connection)) {
            const bool isUnmapped = (event->response_type & 0x7f) == XCB_UNMAP_NOTIFY;
            free(event);
            if (!isUnmapped || m_count >= times)
                continue;
            xcb_map_window(m_connection, window);
            xcb_flush(m_connection);
            ++m_count;
        }
    }
}

} // namespace tolvar::test
