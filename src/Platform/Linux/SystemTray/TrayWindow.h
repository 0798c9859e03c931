#pragma once

#include "Platform/Linux/SystemTray/TrayConnection.h"

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <set>

namespace tolvar {

/// One window in the system tray: asks to be docked, knows what size it was given and what lies
/// behind it, and shows a picture. Lengths are device pixels.
///
/// Its colours have an alpha channel where the tray offers such a visual. Where it does not, the
/// window lies on its parent's background, which is read once and whenever the server says that
/// something was uncovered, so that a new picture needs no answer from the server.
class TrayWindow final {
public:
    struct Observer {
        /// Size or background have changed: a new picture is wanted.
        std::function<void()> exposed;
        /// It stands somewhere else.
        std::function<void()> moved;
        /// It was taken out of the tray: it is of no use any more.
        std::function<void()> released;
        /// The pointer came or left.
        std::function<void(bool isInside)> hovered;
        /// A button (XCB_BUTTON_INDEX_...) went down and up in it; the place is on the root window.
        std::function<void(int button, QPoint place)> clicked;
    };

    /// Asks the tray to dock a window that wants this size. `connection` has a manager.
    TrayWindow(std::shared_ptr<TrayConnection> connection, QSize size, Observer observer);
    ~TrayWindow();
    TrayWindow(const TrayWindow&) = delete;
    TrayWindow& operator=(const TrayWindow&) = delete;

    /// What the tray gave; empty until it did.
    QSize size() const { return m_isDocked ? m_size : QSize(); }
    void askForSize(QSize size);
    void setName(const QString& name);

    /// The tray's own colour for symbols, if it says (_NET_SYSTEM_TRAY_COLORS).
    std::optional<QColor> offeredInk() const;
    /// What lies behind on average; nothing where that shines through.
    std::optional<QColor> averageBackground() const;
    /// A picture of what lies behind, transparent where that shines through, to draw on; null while
    /// the window is not in view.
    QImage background();
    /// Shows a picture made from `background`.
    void put(const QImage& picture);

    /// Where it stands on the root window; nothing while it is not docked.
    std::optional<QRect> place() const;
    xcb_window_t id() const { return m_window; }

private:
    struct Visual {
        xcb_visualid_t id;
        std::uint8_t depth;
    };

    Visual trayVisual() const;
    bool hasAlpha() const { return m_visual.depth == 32; }
    void create(QSize size);
    void describe(QSize size);
    void dock();
    void handle(const xcb_generic_event_t& event);
    void handleReparent(const xcb_reparent_notify_event_t& event);
    void handleConfigure(const xcb_configure_notify_event_t& event);
    void handleButton(const xcb_button_press_event_t& event, bool isPress);
    void watchAncestors();
    void stopWatching(const std::set<xcb_window_t>& windows);
    void readBackground();

    std::shared_ptr<TrayConnection> m_connection;
    Observer m_observer;
    Visual m_visual;
    xcb_window_t m_window = XCB_NONE;
    xcb_colormap_t m_colormap = XCB_NONE;
    xcb_gcontext_t m_context = XCB_NONE;
    QSize m_wanted;
    QSize m_size;
    bool m_isDocked = false;
    bool m_isMapped = false;
    bool m_isBackgroundOld = true;
    QImage m_background;
    std::optional<int> m_pressed; ///< button
    std::set<xcb_window_t> m_ancestors;
    Subscription m_events;
};

} // namespace tolvar
