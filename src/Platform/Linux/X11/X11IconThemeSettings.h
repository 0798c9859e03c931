#pragma once

#include "Platform/Interfaces/IconThemeSettings.h"

#include <memory>

namespace tolvar {

class XConnection;

/// The icon theme that the desktop's settings manager tells all programs (XSETTINGS,
/// Net/IconThemeName), and what the files say where there is no such manager.
class X11IconThemeSettings final : public IconThemeSettings {
public:
    /// Connects to the X server of this session; null when there is none, and `files` is untouched.
    static std::unique_ptr<X11IconThemeSettings> create(std::unique_ptr<IconThemeSettings>& files);
    ~X11IconThemeSettings() override;

    QString themeName() const override;
    QStringList themeFolders() const override { return m_files->themeFolders(); }

private:
    X11IconThemeSettings(std::unique_ptr<XConnection> connection,
                         std::unique_ptr<IconThemeSettings> files);

    std::unique_ptr<XConnection> m_connection;
    std::unique_ptr<IconThemeSettings> m_files;
};

} // namespace tolvar
