#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace tolvar {

/// A browser on this machine, and how far the way between it and Tolvar is laid.
struct BrowserCompanion {
    enum class State {
        notSetUp,
        setUp,
        /// Laid by another build or version of Tolvar, or only in part; setting up renews it.
        outOfDate,
    };

    /// What commands call it, for example "chromium".
    QString id;
    /// The name people see.
    QString name;
    State state = State::notSetUp;
    /// The names its processes have, by which its connections are known.
    QStringList processes;
    /// Why it cannot be reached, whatever its state: a sentence for people, without its full stop
    /// and capital; nothing when it can.
    std::optional<QString> obstacle;
    /// What is left for people to do once it is set up, as such a sentence; may be empty.
    QString remainder;
    /// What is left once that was removed, likewise.
    QString leftover;

    bool operator==(const BrowserCompanion&) const = default;
};

/// What Tolvar puts beside browsers so that they let it see and redirect their tabs.
class BrowserCompanions {
public:
    virtual ~BrowserCompanions() = default;

    /// The ids of all browsers that Tolvar knows, installed or not, in display order.
    virtual QStringList known() const = 0;
    /// The browser that people call so, installed or not; nothing when none is known by that name.
    virtual std::optional<BrowserCompanion> find(const QString& name) const = 0;
    /// The browsers that are installed, and those for which something is left of a setting-up, in
    /// display order. Read afresh at each call.
    virtual std::vector<BrowserCompanion> found() const = 0;
    /// Lays the way to a browser or renews it; takes effect when the browser starts. Returns the
    /// error's description when it fails, which is the obstacle where there is one.
    [[nodiscard]] virtual std::optional<QString> setUp(const QString& id) = 0;
    /// Takes away what setting up made, also when the browser is gone. Nothing to take away is no
    /// error. Returns the error's description when it fails.
    [[nodiscard]] virtual std::optional<QString> remove(const QString& id) = 0;
};

} // namespace tolvar
