#pragma once

#include "Extensions/ObserverList.h"
#include "Platform/Linux/X11/XConnection.h"

#include <QSocketNotifier>

#include <array>
#include <functional>
#include <memory>

namespace tolvar {

enum class TrayAtom {
    selection, ///< _NET_SYSTEM_TRAY_Sn of this screen
    opcode,
    visual,
    colors,
    manager,
    xembedInfo,
    compositing, ///< _NET_WM_CM_Sn of this screen
};

/// A connection to the X server for a window in the system tray (freedesktop System Tray Protocol),
/// which knows the tray that there is at the moment.
///
/// While nothing happens in the tray no event comes and nothing is done.
class TrayConnection final : public std::enable_shared_from_this<TrayConnection> {
public:
    /// Either may be left empty, and may drop any subscription.
    struct Observer {
        std::function<void()> managerChanged = {};
        std::function<void(const xcb_generic_event_t& event)> happened = {};
    };

    /// Connects to the X server that DISPLAY names; null when there is none.
    static std::shared_ptr<TrayConnection> open();
    ~TrayConnection();
    TrayConnection(const TrayConnection&) = delete;
    TrayConnection& operator=(const TrayConnection&) = delete;

    XConnection& server() { return *m_server; }
    xcb_connection_t* get() const { return m_server->get(); }
    xcb_atom_t atom(TrayAtom atom) const { return m_atoms[static_cast<std::size_t>(atom)]; }
    /// The tray's window; XCB_NONE when there is no tray.
    xcb_window_t manager() const { return m_manager; }

    /// Whether a compositing manager blends windows with what lies behind them.
    bool isComposited() const { return ownerOf(atom(TrayAtom::compositing)) != XCB_NONE; }

    [[nodiscard]] Subscription observe(Observer observer) {
        return m_observers.add(std::move(observer));
    }
    /// To be called after the server was asked something: events that came before the answer wake
    /// nobody any more.
    void readEventsSoon();

private:
    explicit TrayConnection(std::unique_ptr<XConnection> server);
    void internAtoms();
    xcb_window_t ownerOf(xcb_atom_t selection) const;
    /// Returns whether there is another tray than before.
    bool findManager();
    void readEvents();
    /// Returns whether the event says that a tray came or went.
    bool isNewsOfManager(const xcb_generic_event_t& event) const;

    std::unique_ptr<XConnection> m_server;
    std::array<xcb_atom_t, 7> m_atoms{};
    xcb_window_t m_manager = XCB_NONE;
    QSocketNotifier m_notifier;
    bool m_isReadingDue = false;
    ObserverList<Observer> m_observers;
};

} // namespace tolvar
