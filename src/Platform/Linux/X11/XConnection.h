#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <xcb/xcb.h>
#include <xcb/xcb_ewmh.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tolvar {

/// The atoms beside those of EWMH, which `XConnection::ewmh` holds.
enum class XAtom {
    wmState,
    wmChangeState,
    wmClientLeader,
    gtkApplicationId,
    kdeDesktopFile,
    i3SocketPath,
    /// Our own mark on a window that we hid; see HiddenMark.
    tolvarHidden,
    /// The selection and the property of the desktop's settings; see XSettings.
    xSettingsSelection,
    xSettingsSettings,
    /// Whether a compositor draws a shadow (0 for none): the custom of those that draw them.
    comptonShadow,
};

/// The value of one property of a window. Absent properties are empty.
struct XProperty {
    std::uint8_t format = 0;
    QByteArray bytes;

    /// The values of a property of format 32; empty for one of another format.
    std::vector<std::uint32_t> words() const;
    /// The first of `words`.
    std::optional<std::uint32_t> word() const;
    /// The texts of a property of format 8, which NUL bytes separate: UTF-8, or Latin-1 where it
    /// is not valid UTF-8.
    std::vector<QString> texts() const;
    /// The first of `texts`, or nothing to read.
    QString text() const;
};

/// A connection to an X server: requests that are asked in bulk and answered together, and events.
///
/// Nothing here is fatal: a window that is gone reads as nothing, a request about it is ignored by
/// the server, and once the server itself is gone all requests do nothing and read as nothing.
class XConnection {
public:
    /// Connects to the X server that DISPLAY names; null when there is none.
    static std::unique_ptr<XConnection> open();
    ~XConnection();
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    /// False once the server is gone.
    bool isAlive() const;
    xcb_connection_t* get() const { return m_ewmh.connection; }
    /// The atoms of the Extended Window Manager Hints.
    const xcb_ewmh_connection_t& ewmh() const { return m_ewmh; }
    xcb_atom_t atom(XAtom atom) const { return m_atoms[static_cast<std::size_t>(atom)]; }
    xcb_window_t root() const { return m_root; }
    /// The width and height of the root window at this moment, in pixels.
    QSize desktopSize() const;
    int fileDescriptor() const { return xcb_get_file_descriptor(get()); }

    /// Longer properties are cut off there: enough for the client list of any desktop.
    static constexpr std::uint32_t maximumPropertyWords = 16384;

    /// Asks for a property without waiting for the answer. Every cookie goes to `take` once.
    xcb_get_property_cookie_t ask(xcb_window_t window, xcb_atom_t property,
                                  std::uint32_t maximumWords = maximumPropertyWords) const;
    /// Waits for the answer; nothing when the window is gone.
    std::optional<XProperty> take(xcb_get_property_cookie_t cookie) const;
    /// Asks and waits; empty when the window is gone.
    XProperty read(xcb_window_t window, xcb_atom_t property,
                   std::uint32_t maximumWords = maximumPropertyWords) const;

    /// Who owns a selection; none when nobody does.
    xcb_window_t selectionOwner(xcb_atom_t selection) const;
    /// Whether the window has been asked to be shown, by its owner or its manager.
    bool isMapped(xcb_window_t window) const;

    /// The process at the other end of each window's connection to the server, in the order of
    /// `windows`; 0 where the server cannot tell (X-Resource 1.2).
    std::vector<qint64> localProcesses(const std::vector<xcb_window_t>& windows) const;

    /// The children of the root: the windows' frames, or the windows themselves where nobody
    /// manages them.
    std::vector<xcb_window_t> topLevelWindows() const;

    void setWords(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                  const std::vector<std::uint32_t>& words);
    void setText(xcb_window_t window, XAtom property, const QString& text);
    void removeProperty(xcb_window_t window, XAtom property);
    void map(xcb_window_t window);
    /// Makes a window of our own that is never shown and tells of changes of its properties.
    xcb_window_t createProbe();
    void destroy(xcb_window_t window);
    /// Sets which events of the window this connection gets (XCB_EVENT_MASK_...).
    void selectEvents(xcb_window_t window, std::uint32_t mask);
    /// Sends a client message about `window` to the window manager (EWMH, ICCCM 4.1.4).
    void tellWindowManager(xcb_window_t window, xcb_atom_t type,
                           const std::array<std::uint32_t, 5>& data);
    void flush();
    /// Waits until the server has done all that was asked of it.
    void sync();

    struct FreeEvent {
        void operator()(xcb_generic_event_t* event) const { free(event); }
    };
    using Event = std::unique_ptr<xcb_generic_event_t, FreeEvent>;
    /// The next event that has arrived, or null. Errors of requests are left out.
    Event nextEvent();
    /// Whether `nextEvent` has any.
    bool hasEvents() { return collectEvents() || !m_events.empty(); }
    /// Whether `nextEvent` has events that were read while waiting for answers, for which
    /// `fileDescriptor` does not become readable any more.
    bool hasQueuedEvents();
    /// Waits until `done` holds, which is asked at once and after every event, at most for
    /// `limit`. The events stay there for `nextEvent`. Returns what `done` said last.
    bool waitUntil(const std::function<bool()>& done, std::chrono::milliseconds limit);

private:
    XConnection() = default;
    bool connect();
    void internAtoms();
    void findResourceExtension();
    bool collectEvents();

    xcb_ewmh_connection_t m_ewmh{};
    xcb_window_t m_root = XCB_NONE;
    std::array<xcb_atom_t, 10> m_atoms{};
    bool m_knowsProcesses = false;
    std::vector<Event> m_events;
};

} // namespace tolvar
