#pragma once

#include "Extensions/Subscription.h"
#include "Platform/Interfaces/ArgbPicture.h"

#include <QString>

#include <compare>
#include <functional>
#include <optional>
#include <vector>

namespace tolvar {

/// Identifies one running application for as long as it runs. The text is the adapter's own.
struct ApplicationHandle {
    QString key;

    bool operator==(const ApplicationHandle&) const = default;
    bool operator<(const ApplicationHandle& other) const { return key < other.key; }
};

/// What is known of a running application at the moment of asking.
struct RunningApplication {
    ApplicationHandle handle;
    /// The name people see in the taskbar and menus; empty when the application has none.
    QString localizedName;
    /// The application's identifier (on a freedesktop system, its desktop entry's id without
    /// ".desktop"); empty when it has none.
    QString bundleIdentifier;
    /// 0 when the process is not known.
    qint64 processIdentifier = 0;
    /// No window of it is shown.
    bool isHidden = false;
    /// It holds the keyboard focus.
    bool isActive = false;

    bool operator==(const RunningApplication&) const = default;
};

/// How far applications can be hidden here.
enum class HidingSupport { none, full };

/// The applications running on this desktop: watched, hidden and shown again.
class Workspace {
public:
    /// Called on the thread that owns the workspace; either may be left empty.
    struct Observer {
        /// The first window of an application appeared.
        std::function<void(const RunningApplication&)> launched;
        /// An application came forward: it took the focus, or it was hidden and shows a window.
        std::function<void(const RunningApplication&)> activated;
    };

    virtual ~Workspace() = default;

    /// Whether `hide` works at all on this desktop.
    virtual HidingSupport hidingSupport() const = 0;

    virtual std::vector<RunningApplication> runningApplications() const = 0;
    /// The application with the keyboard focus.
    virtual std::optional<RunningApplication> frontmostApplication() const = 0;
    /// The application behind `handle`, or nothing when it has terminated.
    virtual std::optional<RunningApplication>
    application(const ApplicationHandle& handle) const = 0;
    /// The application's icon as its windows bring it, in every size that they have; empty when
    /// they bring none, or the application has terminated.
    virtual std::vector<ArgbPicture> icon(const ApplicationHandle& handle) const = 0;

    /// Hides every shown window of the application and remembers which these were. The memory of
    /// it outlives this process: see `hiddenByEarlierRun`.
    virtual void hide(const ApplicationHandle& handle) = 0;
    /// Shows again exactly the windows that `hide` hid, in this run or an earlier one, without
    /// taking the focus from the window that has it. An unknown handle is ignored.
    virtual void unhide(const ApplicationHandle& handle) = 0;
    /// Brings our own windows forward, so that the keyboard leaves the other application. Does
    /// nothing while we show no window.
    virtual void activateSelf() = 0;

    /// Applications with windows that a former run of this program hid and did not show again.
    virtual std::vector<ApplicationHandle> hiddenByEarlierRun() const = 0;

    /// Watches launches and activations until the subscription is dropped. Without subscriptions
    /// the workspace is not watched and costs nothing.
    [[nodiscard]] virtual Subscription observe(Observer observer) = 0;
};

} // namespace tolvar
