#include "Platform/Linux/SystemTray/FakeTray.h"

#include <cstdlib>
#include <cstring>
#include <utility>

namespace tolvar::test {

namespace {

constexpr int trayWidth = 300;

xcb_visualid_t visualWithAlpha(xcb_connection_t* connection) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem > 0;
         xcb_depth_next(&depth))
        if (depth.data->depth == 32 && depth.data->visuals_len > 0)
            return xcb_depth_visuals_iterator(depth.data).data->visual_id;
    return XCB_NONE;
}

std::uint32_t pixel(const QColor& color) {
    return color.rgb() & 0xffffff;
}

} // namespace

FakeTray::FakeTray(const Look& look)
    : m_look(look) {
    create();
    announce();
}

FakeTray::~FakeTray() {
    if (m_icon != XCB_NONE)
        release();
    m_server->destroy(m_window);
    m_server->sync();
}

xcb_atom_t FakeTray::atom(const char* name) const {
    auto* reply = xcb_intern_atom_reply(
        m_server->get(),
        xcb_intern_atom(m_server->get(), 0, static_cast<std::uint16_t>(std::strlen(name)), name),
        nullptr);
    const xcb_atom_t atom = reply->atom;
    free(reply);
    return atom;
}

void FakeTray::create() {
    m_window = xcb_generate_id(m_server->get());
    const std::uint32_t values[] = {pixel(m_look.background), 1,
                                    XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT |
                                        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY};
    xcb_create_window(m_server->get(), XCB_COPY_FROM_PARENT, m_window, m_server->root(), corner.x(),
                      corner.y(), trayWidth, thickness, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    if (m_look.visual == Visual::withAlpha)
        m_server->setWords(m_window, atom("_NET_SYSTEM_TRAY_VISUAL"), XCB_ATOM_VISUALID,
                           {visualWithAlpha(m_server->get())});
    if (const auto& ink = m_look.ink) {
        std::vector<std::uint32_t> words;
        for (int role = 0; role < 4; ++role)
            for (const int part : {ink->red(), ink->green(), ink->blue()})
                words.push_back(static_cast<std::uint32_t>(part) * 257);
        m_server->setWords(m_window, atom("_NET_SYSTEM_TRAY_COLORS"), XCB_ATOM_CARDINAL, words);
    }
    m_server->map(m_window);
}

void FakeTray::announce() {
    const xcb_atom_t selection = atom("_NET_SYSTEM_TRAY_S0");
    xcb_set_selection_owner(m_server->get(), m_window, selection, XCB_CURRENT_TIME);
    xcb_client_message_event_t news{};
    news.response_type = XCB_CLIENT_MESSAGE;
    news.format = 32;
    news.window = m_server->root();
    news.type = atom("MANAGER");
    news.data.data32[1] = selection;
    news.data.data32[2] = m_window;
    xcb_send_event(m_server->get(), 0, m_server->root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&news));
    m_server->sync();
}

void FakeTray::work() {
    const xcb_atom_t opcode = atom("_NET_SYSTEM_TRAY_OPCODE");
    while (const auto event = m_server->nextEvent()) {
        const int type = event->response_type & 0x7f;
        if (type == XCB_CLIENT_MESSAGE) {
            const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
            if (message.type == opcode && message.data.data32[1] == 0)
                dock(message.data.data32[2]);
        } else if (type == XCB_CONFIGURE_REQUEST) {
            configure(reinterpret_cast<const xcb_configure_request_event_t&>(*event));
        } else if (type == XCB_DESTROY_NOTIFY) {
            if (reinterpret_cast<const xcb_destroy_notify_event_t&>(*event).window == m_icon)
                m_icon = XCB_NONE;
        }
    }
    m_server->flush();
}

void FakeTray::dock(xcb_window_t window) {
    m_icon = window;
    ++m_docks;
    xcb_reparent_window(m_server->get(), window, m_window, firstIcon, 0);
    const auto side = static_cast<std::uint32_t>(m_thickness);
    const std::uint32_t values[] = {side, side};
    xcb_configure_window(m_server->get(), window,
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values);
    if (m_showsIcons)
        m_server->map(window);
}

void FakeTray::configure(const xcb_configure_request_event_t& request) {
    if (m_look.widths == Widths::refused || std::exchange(m_forgetsASize, false))
        return;
    const std::uint32_t values[] = {request.width, static_cast<std::uint32_t>(m_thickness)};
    xcb_configure_window(m_server->get(), request.window,
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values);
}

std::uint8_t FakeTray::iconDepth() const {
    auto* reply =
        xcb_get_geometry_reply(m_server->get(), xcb_get_geometry(m_server->get(), m_icon), nullptr);
    const std::uint8_t depth = reply ? reply->depth : std::uint8_t(0);
    free(reply);
    return depth;
}

QSize FakeTray::iconSize() const {
    auto* reply =
        xcb_get_geometry_reply(m_server->get(), xcb_get_geometry(m_server->get(), m_icon), nullptr);
    const QSize size = reply ? QSize(reply->width, reply->height) : QSize();
    free(reply);
    return size;
}

bool FakeTray::iconWantsToBeMapped() const {
    const auto words = m_server->read(m_icon, atom("_XEMBED_INFO")).words();
    return words.size() == 2 && words[0] == 0 && words[1] == 1;
}

void FakeTray::release() {
    xcb_unmap_window(m_server->get(), m_icon);
    xcb_reparent_window(m_server->get(), m_icon, m_server->root(), 0, 0);
    m_server->sync();
    m_icon = XCB_NONE;
}

void FakeTray::move(QPoint to) {
    const std::uint32_t values[] = {static_cast<std::uint32_t>(to.x()),
                                    static_cast<std::uint32_t>(to.y())};
    xcb_configure_window(m_server->get(), m_window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                         values);
    m_server->sync();
}

void FakeTray::setThickness(int points) {
    m_thickness = points;
    const auto side = static_cast<std::uint32_t>(points);
    const std::uint32_t values[] = {side, side};
    xcb_configure_window(m_server->get(), m_window, XCB_CONFIG_WINDOW_HEIGHT, &values[1]);
    xcb_configure_window(m_server->get(), m_icon,
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values);
    m_server->sync();
}

template<typename Event>
void FakeTray::sendToIcon(std::uint32_t mask, const Event& event) {
    xcb_send_event(m_server->get(), 0, m_icon, mask, reinterpret_cast<const char*>(&event));
    m_server->sync();
}

void FakeTray::click(std::uint8_t button) {
    xcb_button_press_event_t event{};
    event.response_type = XCB_BUTTON_PRESS;
    event.detail = button;
    event.root = m_server->root();
    event.event = m_icon;
    event.event_x = event.event_y = thickness / 2;
    event.root_x = static_cast<std::int16_t>(corner.x() + firstIcon + event.event_x);
    event.root_y = static_cast<std::int16_t>(corner.y() + event.event_y);
    sendToIcon(XCB_EVENT_MASK_BUTTON_PRESS, event);
    event.response_type = XCB_BUTTON_RELEASE;
    sendToIcon(XCB_EVENT_MASK_BUTTON_RELEASE, event);
}

void FakeTray::cross(Crossing crossing) {
    xcb_enter_notify_event_t event{};
    event.response_type = crossing == Crossing::enters ? XCB_ENTER_NOTIFY : XCB_LEAVE_NOTIFY;
    event.root = m_server->root();
    event.event = m_icon;
    sendToIcon(crossing == Crossing::enters ? XCB_EVENT_MASK_ENTER_WINDOW
                                            : XCB_EVENT_MASK_LEAVE_WINDOW,
               event);
}

QColor FakeTray::colorAt(QPoint place) const {
    auto* reply =
        xcb_get_image_reply(m_server->get(),
                            xcb_get_image(m_server->get(), XCB_IMAGE_FORMAT_Z_PIXMAP,
                                          m_server->root(), static_cast<std::int16_t>(place.x()),
                                          static_cast<std::int16_t>(place.y()), 1, 1, ~0u),
                            nullptr);
    QRgb color = 0;
    if (reply)
        std::memcpy(&color, xcb_get_image_data(reply), sizeof color);
    free(reply);
    return QColor::fromRgb(color);
}

} // namespace tolvar::test
