#pragma once

#include "Platform/Linux/X11/HiddenMark.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace tolvar {

/// The X11 id of a window; 0 is none.
using WindowId = std::uint32_t;

enum class WindowKind {
    /// A window that people work in: normal windows, dialogs, palettes.
    application,
    /// Docks, desktops, splash screens, notifications and the like: never touched.
    furniture,
};

/// WM_CLASS: the instance's name and the class's.
struct WindowClass {
    QString instanceName;
    QString className;

    bool operator==(const WindowClass&) const = default;
};

/// What a window says of itself once and for all.
struct WindowFacts {
    WindowId id = 0;
    WindowKind kind = WindowKind::application;
    WindowClass wmClass;
    /// _GTK_APPLICATION_ID, or else _KDE_NET_WM_DESKTOP_FILE: a desktop entry's id.
    QString applicationId;
    /// The process on this machine that shows the window; 0 when it is not known to be one.
    qint64 processIdentifier = 0;
    /// WM_TRANSIENT_FOR: the window this one is a dialog of.
    WindowId transientFor = 0;
    /// WM_CLIENT_LEADER, or else the group of WM_HINTS: what windows of one client share.
    WindowId leader = 0;

    bool operator==(const WindowFacts&) const = default;
};

/// What the window manager, and we, say of a window at one moment.
struct WindowState {
    /// The state field of WM_STATE (ICCCM 4.1.3.1): 0 withdrawn, 1 normal, 3 iconic.
    std::optional<std::uint32_t> icccmState;
    /// _NET_WM_STATE_HIDDEN and _NET_WM_STATE_SHADED.
    bool isHidden = false;
    bool isShaded = false;
    /// _NET_WM_DESKTOP: an index, or `everyDesktop`.
    std::optional<std::uint32_t> desktop;
    std::optional<HiddenMark> mark;
    /// As it reads now: some programs say only late who they are, and the id of a window that is
    /// gone may soon be another's.
    WindowClass wmClass;

    static constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;

    bool operator==(const WindowState&) const = default;
};

} // namespace tolvar
