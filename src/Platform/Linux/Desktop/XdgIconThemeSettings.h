#pragma once

#include "Platform/Interfaces/IconThemeSettings.h"

namespace tolvar {

/// The icon theme as the files of desktops tell it: the settings that GTK reads, then KDE's. It is
/// what holds where no settings manager runs, and on Wayland.
class XdgIconThemeSettings final : public IconThemeSettings {
public:
    /// `configFolders` and `dataFolders` are those of the XDG Base Directory Specification, the
    /// user's own first; `home` has the folder ".icons".
    XdgIconThemeSettings(QStringList configFolders, QStringList dataFolders, QString home);
    /// With XDG_CONFIG_HOME, XDG_CONFIG_DIRS and the data folders of DesktopEntries, so that what
    /// Flatpak and Snap export has its icons.
    static XdgIconThemeSettings ofThisDesktop();

    QString themeName() const override;
    QStringList themeFolders() const override;

private:
    QStringList m_configFolders;
    QStringList m_dataFolders;
    QString m_home;
};

} // namespace tolvar
