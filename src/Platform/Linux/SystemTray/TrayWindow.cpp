#include "Platform/Linux/SystemTray/TrayWindow.h"

#include <xcb/xcb_icccm.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

namespace tolvar {

namespace {

/// System Tray Protocol, "Opcodes"; XEmbed Protocol, "_XEMBED_INFO".
constexpr std::uint32_t requestDock = 0;
constexpr std::uint32_t xembedVersion = 0;
constexpr std::uint32_t xembedMapped = 1;

constexpr std::uint32_t windowEvents = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                       XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                       XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW;

constexpr char windowClass[] = "tolvar\0Tolvar";

struct FreeReply {
    void operator()(void* reply) const { free(reply); }
};
template<typename T>
using Reply = std::unique_ptr<T, FreeReply>;

/// The depth of a visual of the first screen; 0 when it has none such.
std::uint8_t depthOf(xcb_connection_t* connection, xcb_visualid_t visual) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem > 0;
         xcb_depth_next(&depth))
        for (auto each = xcb_depth_visuals_iterator(depth.data); each.rem > 0;
             xcb_visualtype_next(&each))
            if (each.data->visual_id == visual)
                return depth.data->depth;
    return 0;
}

std::uint16_t side(int length) {
    return static_cast<std::uint16_t>(std::clamp(length, 1, 0x7fff));
}

} // namespace

TrayWindow::TrayWindow(std::shared_ptr<TrayConnection> connection, QSize size, Observer observer)
    : m_connection(std::move(connection))
    , m_observer(std::move(observer))
    , m_visual(trayVisual())
    , m_size(size) {
    m_events = m_connection->observe({.happened = [this](const auto& event) { handle(event); }});
    create(size);
    describe(size);
    dock();
}

TrayWindow::~TrayWindow() {
    xcb_connection_t* server = m_connection->get();
    stopWatching(m_ancestors);
    xcb_free_gc(server, m_context);
    xcb_destroy_window(server, m_window);
    if (m_colormap != XCB_NONE)
        xcb_free_colormap(server, m_colormap);
    xcb_flush(server);
}

/// A visual without alpha is as good as the root's, from which trays take theirs.
TrayWindow::Visual TrayWindow::trayVisual() const {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection->get())).data;
    const auto offered =
        m_connection->server().read(m_connection->manager(), m_connection->atom(TrayAtom::visual));
    const xcb_visualid_t visual = offered.word().value_or(screen->root_visual);
    const std::uint8_t depth = depthOf(m_connection->get(), visual);
    return depth == 32 ? Visual{visual, depth} : Visual{screen->root_visual, screen->root_depth};
}

void TrayWindow::create(QSize size) {
    xcb_connection_t* server = m_connection->get();
    const xcb_window_t root = m_connection->server().root();
    m_window = xcb_generate_id(server);
    if (hasAlpha()) {
        m_colormap = xcb_generate_id(server);
        xcb_create_colormap(server, XCB_COLORMAP_ALLOC_NONE, m_colormap, root, m_visual.id);
        const std::uint32_t values[] = {0, 0, windowEvents, m_colormap};
        xcb_create_window(
            server, m_visual.depth, m_window, root, 0, 0, side(size.width()), side(size.height()),
            0, XCB_WINDOW_CLASS_INPUT_OUTPUT, m_visual.id,
            XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP, values);
    } else {
        const std::uint32_t values[] = {XCB_BACK_PIXMAP_PARENT_RELATIVE, windowEvents};
        xcb_create_window(server, m_visual.depth, m_window, root, 0, 0, side(size.width()),
                          side(size.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, m_visual.id,
                          XCB_CW_BACK_PIXMAP | XCB_CW_EVENT_MASK, values);
    }
    m_context = xcb_generate_id(server);
    xcb_create_gc(server, m_context, m_window, 0, nullptr);
}

void TrayWindow::describe(QSize size) {
    const xcb_atom_t info = m_connection->atom(TrayAtom::xembedInfo);
    m_connection->server().setWords(m_window, info, info, {xembedVersion, xembedMapped});
    xcb_icccm_set_wm_class(m_connection->get(), m_window, sizeof windowClass, windowClass);
    askForSize(size);
}

void TrayWindow::dock() {
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = 32;
    request.window = m_connection->manager();
    request.type = m_connection->atom(TrayAtom::opcode);
    request.data.data32[0] = XCB_CURRENT_TIME;
    request.data.data32[1] = requestDock;
    request.data.data32[2] = m_window;
    xcb_send_event(m_connection->get(), 0, request.window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&request));
    m_connection->readEventsSoon();
}

/// Trays look at the hints or at the request; each for itself is not heard by all.
void TrayWindow::askForSize(QSize size) {
    m_wanted = size;
    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_min_size(&hints, side(size.width()), side(size.height()));
    xcb_icccm_size_hints_set_base_size(&hints, side(size.width()), side(size.height()));
    xcb_icccm_set_wm_normal_hints(m_connection->get(), m_window, &hints);
    const std::uint32_t values[] = {side(size.width()), side(size.height())};
    xcb_configure_window(m_connection->get(), m_window,
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values);
    xcb_flush(m_connection->get());
}

void TrayWindow::setName(const QString& name) {
    const QByteArray bytes = name.toUtf8();
    const auto& ewmh = m_connection->server().ewmh();
    xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, m_window, ewmh._NET_WM_NAME,
                        ewmh.UTF8_STRING, 8, static_cast<std::uint32_t>(bytes.size()),
                        bytes.constData());
    xcb_flush(m_connection->get());
}

std::optional<QColor> TrayWindow::offeredInk() const {
    const auto words = m_connection->server()
                           .read(m_connection->manager(), m_connection->atom(TrayAtom::colors))
                           .words();
    m_connection->readEventsSoon();
    if (words.size() < 3)
        return std::nullopt;
    return QColor::fromRgba64(static_cast<quint16>(words[0]), static_cast<quint16>(words[1]),
                              static_cast<quint16>(words[2]));
}

std::optional<QColor> TrayWindow::averageBackground() const {
    if (hasAlpha() || m_background.isNull())
        return std::nullopt;
    return m_background.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .pixelColor(0, 0);
}

QImage TrayWindow::background() {
    if (!m_isMapped || !m_isDocked)
        return {};
    if (m_isBackgroundOld)
        readBackground();
    m_isBackgroundOld = m_background.isNull();
    return m_background;
}

void TrayWindow::readBackground() {
    if (hasAlpha()) {
        m_background = QImage(m_size, QImage::Format_ARGB32_Premultiplied);
        m_background.fill(Qt::transparent);
        return;
    }
    xcb_connection_t* server = m_connection->get();
    xcb_clear_area(server, 0, m_window, 0, 0, 0, 0);
    const Reply<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(server,
                            xcb_get_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, 0, 0,
                                          side(m_size.width()), side(m_size.height()), ~0u),
                            nullptr));
    m_connection->readEventsSoon();
    const QImage::Format format =
        m_visual.depth == 16 ? QImage::Format_RGB16 : QImage::Format_RGB32;
    m_background = QImage(m_size, format);
    if (reply && xcb_get_image_data_length(reply.get()) >= m_background.sizeInBytes())
        std::memcpy(m_background.bits(), xcb_get_image_data(reply.get()),
                    static_cast<std::size_t>(m_background.sizeInBytes()));
    else
        m_background = {};
}

void TrayWindow::put(const QImage& picture) {
    xcb_put_image(m_connection->get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, m_context,
                  side(picture.width()), side(picture.height()), 0, 0, 0, m_visual.depth,
                  static_cast<std::uint32_t>(picture.sizeInBytes()), picture.constBits());
    xcb_flush(m_connection->get());
}

std::optional<QRect> TrayWindow::place() const {
    if (!m_isDocked)
        return std::nullopt;
    xcb_connection_t* server = m_connection->get();
    const Reply<xcb_translate_coordinates_reply_t> reply(xcb_translate_coordinates_reply(
        server, xcb_translate_coordinates(server, m_window, m_connection->server().root(), 0, 0),
        nullptr));
    m_connection->readEventsSoon();
    if (!reply)
        return std::nullopt;
    return QRect(QPoint(reply->dst_x, reply->dst_y), m_size);
}

void TrayWindow::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_EXPOSE: {
        const auto& expose = reinterpret_cast<const xcb_expose_event_t&>(event);
        if (expose.window != m_window || expose.count > 0)
            return;
        m_isBackgroundOld = true;
        return m_observer.exposed();
    }
    case XCB_MAP_NOTIFY:
        if (reinterpret_cast<const xcb_map_notify_event_t&>(event).window == m_window)
            m_isMapped = true;
        return;
    case XCB_UNMAP_NOTIFY:
        if (reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window == m_window)
            m_isMapped = false;
        return;
    case XCB_DESTROY_NOTIFY:
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == m_window)
            m_observer.released();
        return;
    case XCB_REPARENT_NOTIFY:
        return handleReparent(reinterpret_cast<const xcb_reparent_notify_event_t&>(event));
    case XCB_CONFIGURE_NOTIFY:
        return handleConfigure(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
    case XCB_ENTER_NOTIFY:
    case XCB_LEAVE_NOTIFY:
        if (reinterpret_cast<const xcb_enter_notify_event_t&>(event).event == m_window)
            m_observer.hovered((event.response_type & 0x7f) == XCB_ENTER_NOTIFY);
        return;
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
        return handleButton(reinterpret_cast<const xcb_button_press_event_t&>(event),
                            (event.response_type & 0x7f) == XCB_BUTTON_PRESS);
    default:
        return;
    }
}

/// A tray that ends leaves the window to the root, where it would be a stray one.
void TrayWindow::handleReparent(const xcb_reparent_notify_event_t& event) {
    if (event.window != m_window && !m_ancestors.contains(event.window))
        return;
    if (event.window == m_window && event.parent == m_connection->server().root())
        return m_observer.released();
    m_isDocked = true;
    if (event.window == m_window) // some trays make it square first, whatever it wants to be
        askForSize(m_wanted);
    watchAncestors();
    m_observer.moved();
}

void TrayWindow::handleConfigure(const xcb_configure_notify_event_t& event) {
    const bool isOwn = event.window == m_window;
    if (!isOwn && !m_ancestors.contains(event.window))
        return;
    const QSize size = isOwn ? QSize(event.width, event.height) : m_size;
    if (std::exchange(m_size, size) != size)
        m_isBackgroundOld = true;
    // Nothing can be read of a window that is not wholly on the screen, as in a panel on its way.
    if (m_isBackgroundOld && m_isDocked)
        m_observer.exposed();
    m_observer.moved();
}

/// Acted upon at the release, when the server has ended the grab that comes with a press: a menu
/// could not take the pointer before.
void TrayWindow::handleButton(const xcb_button_press_event_t& event, bool isPress) {
    if (event.event != m_window)
        return;
    if (isPress) {
        m_pressed = event.detail;
        return;
    }
    const bool isInside = QRect(QPoint(0, 0), m_size).contains(event.event_x, event.event_y);
    if (std::exchange(m_pressed, std::nullopt) == event.detail && isInside)
        m_observer.clicked(event.detail, {event.root_x, event.root_y});
}

/// The tray's own window may be among them, and is listened to for its end all the time.
void TrayWindow::stopWatching(const std::set<xcb_window_t>& windows) {
    for (const xcb_window_t window : windows)
        if (window != m_connection->manager())
            m_connection->server().selectEvents(window, XCB_EVENT_MASK_NO_EVENT);
}

/// The window is told when it moves within its parent, but not when that moves.
void TrayWindow::watchAncestors() {
    xcb_connection_t* server = m_connection->get();
    const xcb_window_t root = m_connection->server().root();
    std::set<xcb_window_t> ancestors;
    xcb_window_t window = m_window;
    for (;;) {
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(server, xcb_query_tree(server, window), nullptr));
        if (!tree || tree->parent == root || tree->parent == XCB_NONE)
            break;
        window = tree->parent;
        ancestors.insert(window);
    }
    stopWatching(m_ancestors);
    for (const xcb_window_t ancestor : ancestors)
        m_connection->server().selectEvents(ancestor, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    m_ancestors = std::move(ancestors);
    m_connection->readEventsSoon();
}

} // namespace tolvar
