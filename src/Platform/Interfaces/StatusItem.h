#pragma once

#include "Extensions/Subscription.h"

#include <QPoint>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace tolvar {

/// What a person can choose from the status item's menu.
enum class StatusCommand { open, pauseOrResume, stop, settings, checkForUpdates, quit };

struct StatusMenuEntry {
    enum class Group { continues, begins };

    StatusCommand command = StatusCommand::open;
    QString text = {};
    bool isEnabled = true;
    /// Whether a line separates it from what stands above.
    Group group = Group::continues;

    bool operator==(const StatusMenuEntry&) const = default;
};

/// Everything that a status item shows.
struct StatusItemContent {
    /// Points, along the panel. What does not fit is cut off at the end of the label. A host that
    /// lays the item out by itself takes no notice of it.
    int length = 0;
    /// Beside the castle.
    QString label = {};
    bool isLabelHidden = true;
    /// Of castle and label, 0 to 1.
    double opacity = 1;
    /// Whether a session goes on, paused or not.
    bool isSessionActive = false;
    /// What it is called to those who do not see it.
    QString accessibleLabel = {};
    QString toolTip = {};
    std::vector<StatusMenuEntry> menu = {};

    bool operator==(const StatusItemContent&) const = default;
};

/// The castle where a desktop keeps the small things that are always in view: in a panel, in a
/// tray or, where there is neither, in a corner of the screen.
class StatusItem {
public:
    /// Each may be left empty. None may destroy the item before it has returned.
    struct Observer {
        /// The item was clicked or otherwise activated; `claimed` is where its host says that was,
        /// in device pixels of the root window. Some hosts say nothing, and some what is not true.
        std::function<void(std::optional<QPoint> claimed)> clicked = {};
        std::function<void(StatusCommand)> chosen = {};
        /// `anchor` has another answer.
        std::function<void()> moved = {};
        /// The measures have other answers, as when the panel changes its size.
        std::function<void()> measuresChanged = {};
    };

    virtual ~StatusItem() = default;

    /// Shows this from now on; nothing is drawn or sent where nothing differs from before.
    virtual void show(const StatusItemContent& content) = 0;

    /// The length at which only the castle shows, in points: a square of the panel's thickness.
    virtual int iconOnlyLength() const = 0;
    /// The castle's width, in points.
    virtual double iconWidth() const = 0;
    /// The natural width of a label, in points: the same for all of as many digits.
    virtual double labelWidth(const QString& label) const = 0;

    /// Where the castle stands, in device pixels of the root window; nothing where only the host
    /// knows.
    virtual std::optional<QRect> anchor() const = 0;

    [[nodiscard]] virtual Subscription observe(Observer observer) = 0;
};

} // namespace tolvar
