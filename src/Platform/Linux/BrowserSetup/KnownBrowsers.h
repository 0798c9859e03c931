#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tolvar {

/// What Tolvar knows of a browser before it looks whether it is installed.
struct KnownBrowser {
    enum class Family {
        /// Looks for hosts and extensions in its folder below XDG_CONFIG_HOME.
        chromium,
        /// Looks for hosts in "~/.mozilla", also where its profiles lie elsewhere.
        firefox,
    };
    enum class Experience { tried, untried };

    /// What commands call it.
    QString id;
    /// The name people see.
    QString name;
    Family family = Family::chromium;
    /// Whether all this was seen to be true of the browser itself.
    Experience experience = Experience::untried;
    /// What starts it; also the names of its desktop entries and Snaps.
    QStringList programs;
    /// The base names of the executables that its processes run.
    QStringList processes;
    /// Its folder below XDG_CONFIG_HOME, where it is of Chromium's family.
    QString configFolder;
    /// Its ids as a Flatpak.
    QStringList flatpaks;
};

/// All of them, in display order.
const std::vector<KnownBrowser>& knownBrowsers();

/// The one with this id; null when there is none.
const KnownBrowser* knownBrowser(const QString& id);

} // namespace tolvar
