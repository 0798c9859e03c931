#pragma once

#include "Platform/Interfaces/InstalledApplications.h"

#include <QHash>
#include <QIcon>
#include <QString>

#include <optional>
#include <vector>

namespace tolvar {

class IconThemeSettings;
class Workspace;
struct RunningApplication;

/// The applications' icons by display name. What was once found is kept until `refresh`. With the
/// first look for an icon the icon theme of the whole program becomes the desktop's.
class ApplicationIcons {
public:
    /// All outlive the icons.
    struct Environment {
        const InstalledApplications& installed;
        const Workspace& workspace;
        const IconThemeSettings& theme;
    };

    explicit ApplicationIcons(const Environment& environment);

    /// The icon of the installed application of that name, else that of a running one; null when
    /// there is neither. The first that has one, where several bear the name.
    QIcon find(const QString& named);
    /// Whether an installed or a running application bears the name.
    bool appExists(const QString& name);

    /// Forgets everything: applications come and go, and so do themes.
    void refresh();
    /// The same, when it is known what is installed now.
    void refresh(std::vector<InstalledApplication> installed);

private:
    void adoptTheme();
    const std::vector<InstalledApplication>& installed();
    const std::vector<RunningApplication>& running();
    QIcon load(const QString& name);

    const Environment m_environment;
    std::optional<std::vector<InstalledApplication>> m_installed;
    std::optional<std::vector<RunningApplication>> m_running;
    QHash<QString, QIcon> m_icons;
    bool m_isThemeKnown = false;
};

} // namespace tolvar
