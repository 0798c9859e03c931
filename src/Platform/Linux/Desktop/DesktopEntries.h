#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tolvar {

/// What one desktop entry says of an application (Desktop Entry Specification 1.5).
struct DesktopEntry {
    /// Desktop file id without ".desktop": the path below the applications folder with "-" for
    /// each "/", for example "org.gnome.Nautilus".
    QString id;
    /// Name, in the user's language; never empty.
    QString name;
    /// Icon: a name for the icon theme, or an absolute path.
    QString iconName;
    /// The base name of the program that Exec starts, without arguments and quoting, behind
    /// wrappers such as env; empty when there is no Exec line. A Flatpak that does not tell its
    /// command is named by its application id.
    QString program;
    /// StartupWMClass; may be empty.
    QString startupWmClass;
    /// NoDisplay: it exists, but menus leave it out.
    bool noDisplay = false;
    /// OnlyShowIn and NotShowIn let this desktop show it, and TryExec's program is there.
    bool appliesHere = true;

    bool operator==(const DesktopEntry&) const = default;
};

/// The desktop entries of Type=Application on this machine, each id once: an entry in an earlier
/// folder hides those of the same id in later ones, and one with Hidden=true removes the id.
class DesktopEntries {
public:
    /// Looks in "applications" below each of `dataFolders`, first one first; `desktops` are the
    /// names of XDG_CURRENT_DESKTOP, `locale` is a POSIX name such as "de_AT.UTF-8", or several
    /// separated by ":", best first.
    DesktopEntries(QStringList dataFolders, QStringList desktops, QString locale);
    /// XDG_DATA_HOME and XDG_DATA_DIRS (XDG Base Directory Specification) with the folders where
    /// Flatpak and Snap export entries, XDG_CURRENT_DESKTOP and the locale of messages.
    static DesktopEntries ofThisDesktop();
    /// These folders.
    static QStringList dataFoldersOfThisDesktop();

    /// Reads the folders afresh; sorted by id. What cannot be read is left out.
    std::vector<DesktopEntry> load() const;

private:
    QStringList m_dataFolders;
    QStringList m_desktops;
    QString m_locale;
};

} // namespace tolvar
