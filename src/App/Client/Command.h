#pragma once

#include "Extensions/Date.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

/// What a command line asks for.
namespace tolvar::Command {

/// Run Tolvar, or open the window of the one that runs.
struct Open {
    bool operator==(const Open&) const = default;
};

struct Start {
    static constexpr Seconds defaultDuration = 25 * 60;

    /// Trimmed, never empty.
    QString goal;
    /// Absent: `defaultDuration`, or the preset's own.
    std::optional<Seconds> duration;
    QStringList categories;
    QStringList apps;
    QStringList sites;
    /// When present, nothing else is chosen to be blocked.
    std::optional<QString> preset;

    bool operator==(const Start&) const = default;
};

struct Pause {
    bool operator==(const Pause&) const = default;
};

struct Resume {
    bool operator==(const Resume&) const = default;
};

struct Extend {
    Seconds by = 300;

    bool operator==(const Extend&) const = default;
};

struct Stop {
    bool operator==(const Stop&) const = default;
};

struct Status {
    enum class Format { text, json, waybar, polybar };

    Format format = Format::text;
    bool follow = false;

    bool operator==(const Status&) const = default;
};

struct List {
    enum class What { history, presets, categories, apps, browsers };
    enum class Format { text, json };

    What what = What::history;
    Format format = Format::text;
    /// The most entries of the history to show; absent: all.
    std::optional<quint32> limit;

    bool operator==(const List&) const = default;
};

/// What Tolvar puts beside browsers.
struct Browsers {
    enum class What { setUp, remove, status };
    enum class Format { text, json };

    What what = What::status;
    /// As people call it; absent: all.
    std::optional<QString> name;
    /// Of the status.
    Format format = Format::text;

    bool operator==(const Browsers&) const = default;
};

struct Quit {
    bool operator==(const Quit&) const = default;
};

struct Version {
    bool operator==(const Version&) const = default;
};

struct Help {
    bool operator==(const Help&) const = default;
};

using Any = std::variant<Open, Start, Pause, Resume, Extend, Stop, Status, List, Browsers, Quit,
                         Version, Help>;

} // namespace tolvar::Command
