#pragma once

#include "Platform/Linux/X11/Desk.h"

#include <QString>

#include <map>
#include <set>
#include <vector>

namespace tolvar {

/// Something an application did.
struct Activity {
    enum class Kind { launched, activated };
    Kind kind = Kind::launched;
    RunningApplication application;

    bool operator==(const Activity&) const = default;
};

/// Tells what applications did between one look at the desktop and the next.
class ActivityTracker {
public:
    /// Begins with this look; what stands there already is no news.
    void begin(const Desk& desk);
    enum class Focus { stayed, moved };
    /// What happened since the last look, at most one activity per application, in the order of
    /// the windows. `focus` says whether the focus moved at all, even if it came back to where it
    /// was: an application that we hid and that has it was brought forward.
    std::vector<Activity> update(const Desk& desk, Focus focus);

    /// We hid the application. Its windows `stillShown` have not followed yet: until they are seen
    /// hidden they count as if they were, so that a slow window manager does not look like a user
    /// who brings them back.
    void noteHidden(const QString& key, const std::vector<WindowId>& stillShown);
    /// We showed these windows of the application again: that it shows them is no news.
    void noteShown(const QString& key, const std::vector<WindowId>& windows);
    /// Windows in view that have not followed by now count as shown from the next `update` on: they
    /// came back, or never went. Windows that nobody sees are still expected to hide.
    void endPatience(const Desk& desk);
    /// Whether a window is in view that is expected to hide.
    bool isPatient(const Desk& desk) const;
    /// The windows that were asked to hide and have not been seen hidden yet.
    const std::set<WindowId>& expectedHidden() const { return m_expectedHidden; }

private:
    /// Which applications there are, and whether each is hidden.
    using Hiddenness = std::map<QString, bool>;

    void forgetFulfilledExpectations(const Desk& desk);
    bool isDueToHide(const DeskWindow& window) const;
    Hiddenness hiddenness(const Desk& desk) const;

    Hiddenness m_applications;
    QString m_active;
    std::set<WindowId> m_expectedHidden;
};

} // namespace tolvar
