#pragma once

#include "Platform/Linux/X11/XConnection.h"

#include <QColor>
#include <QPoint>
#include <QSize>

#include <optional>
#include <vector>

namespace tolvar::test {

/// A system tray of the test's own on the display's root window, which can do what real ones do
/// rarely. It acts only while `work` is called.
class FakeTray {
public:
    enum class Visual { plain, withAlpha };
    enum class Widths { granted, refused };
    struct Look {
        QColor background = QColor(40, 40, 40);
        std::optional<QColor> ink = std::nullopt;
        Visual visual = Visual::plain;
        Widths widths = Widths::granted;
    };
    static constexpr int thickness = 24;
    static constexpr QPoint corner{100, 50};
    /// Where the first icon stands in the tray.
    static constexpr int firstIcon = 10;

    /// Takes the selection and announces itself.
    explicit FakeTray(const Look& look);
    /// Ends as a tray does: its window goes, and icons are left to the root window.
    ~FakeTray();
    FakeTray(const FakeTray&) = delete;
    FakeTray& operator=(const FakeTray&) = delete;

    /// Docks who asked for it, and answers wishes for a size.
    void work();

    /// The icon that was docked last; XCB_NONE if none.
    xcb_window_t icon() const { return m_icon; }
    int docks() const { return m_docks; }
    std::uint8_t iconDepth() const;
    QSize iconSize() const;
    /// Whether the icon says that it wants to be shown (_XEMBED_INFO).
    bool iconWantsToBeMapped() const;
    /// The next wish for a size is lost.
    void forgetASize() { m_forgetsASize = true; }
    /// From now on it docks and does not show.
    void hideIcons() { m_showsIcons = false; }
    /// Throws the icon out, onto the root window.
    void release();
    void move(QPoint to);
    void setThickness(int points);
    /// Sends a press and a release of the button to the middle of the icon.
    void click(std::uint8_t button);
    enum class Crossing { enters, leaves };
    void cross(Crossing crossing);
    /// The colour in view at a place of the root window.
    QColor colorAt(QPoint place) const;

private:
    void create();
    void announce();
    void dock(xcb_window_t window);
    void configure(const xcb_configure_request_event_t& request);
    xcb_atom_t atom(const char* name) const;
    template<typename Event>
    void sendToIcon(std::uint32_t mask, const Event& event);

    Look m_look;
    std::unique_ptr<XConnection> m_server = XConnection::open();
    xcb_window_t m_window = XCB_NONE;
    xcb_window_t m_icon = XCB_NONE;
    int m_thickness = thickness;
    int m_docks = 0;
    bool m_showsIcons = true;
    bool m_forgetsASize = false;
};

} // namespace tolvar::test
