#pragma once

#include <QString>
#include <QStringList>

namespace tolvar {

struct KnownBrowser;

/// Looks whether a browser is installed, and as what.
class InstalledBrowsers {
public:
    /// The folders to look in, absolute; those that are absent count as empty.
    struct Places {
        /// With programs, best first.
        QStringList programs;
        /// With desktop entries in "applications", but for those of Flatpaks and Snaps.
        QStringList entries;
        /// Where Flatpak exports what it installed.
        QStringList flatpaks;
        /// With programs of Snaps.
        QStringList snaps;
    };
    enum class Kind { absent, ordinary, flatpak, snap };

    explicit InstalledBrowsers(Places places)
        : m_places(std::move(places)) {}
    /// PATH, XDG_DATA_HOME and XDG_DATA_DIRS (XDG Base Directory Specification), and where Flatpak
    /// and Snap put things.
    static Places placesOfThisUser();

    /// An ordinary installation is preferred to a Flatpak and that to a Snap. A program that only
    /// starts a Snap, as some distributions install it, counts as the Snap.
    Kind kindOf(const KnownBrowser& browser) const;

private:
    bool isOrdinary(const KnownBrowser& browser) const;
    bool isFlatpak(const KnownBrowser& browser) const;
    bool isSnap(const KnownBrowser& browser) const;
    bool isSnapProgram(const QString& path) const;

    Places m_places;
};

} // namespace tolvar
