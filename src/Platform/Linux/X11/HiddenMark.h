#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace tolvar {

/// What we write on a window before we hide it, as its property _TOLVAR_HIDDEN (UTF8_STRING).
///
/// The mark is the only memory of what was hidden: it is set on the same connection before the
/// request to hide, so that no crash can come between, it outlives our process, and it dies with
/// its window.
struct HiddenMark {
    /// The run of the program that hid the window: one word.
    QString run;
    /// The window's _NET_WM_USER_TIME when it was hidden, where it has one. When it has another
    /// one later, its user has had it in hand since, and what hides it then is not our doing.
    std::optional<std::uint32_t> userTime;
    /// Sticky where the hiding had to end that.
    bool wasSticky = false;
    /// The workspace it was taken from; empty where hiding leaves a window on its workspace.
    QString workspace;

    QString toText() const;
    /// Nothing when `text` is not a mark.
    static std::optional<HiddenMark> fromText(const QString& text);

    bool operator==(const HiddenMark&) const = default;
};

} // namespace tolvar
