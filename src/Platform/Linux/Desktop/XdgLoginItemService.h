#pragma once

#include "Platform/Interfaces/LoginItemService.h"

namespace tolvar {

/// Starting at login by the desktop entry "autostart/app.tolvar.Tolvar.desktop" in the user's
/// configuration folder (freedesktop.org, "Autostart Of Applications During Startup"). A desktop
/// that lets people switch such entries off marks them with Hidden=true or
/// X-GNOME-Autostart-enabled=false: that is "requires approval" here. Something in the entry's
/// place that starts nothing (a link to nowhere, an empty file) counts as not registered, and
/// registering replaces it.
class XdgLoginItemService final : public LoginItemService {
public:
    /// `executablePath` is the program to start, absolute; `configFolder` is XDG_CONFIG_HOME.
    XdgLoginItemService(QString executablePath, const QString& configFolder);
    /// With the configuration folder of the XDG Base Directory Specification.
    static XdgLoginItemService ofThisUser(const QString& executablePath);

    LoginItemStatus status() const override;
    [[nodiscard]] std::optional<QString> registerItem() override;
    [[nodiscard]] std::optional<QString> unregisterItem() override;

private:
    bool hasProgram() const;

    QString m_executablePath;
    QString m_entryPath;
};

} // namespace tolvar
