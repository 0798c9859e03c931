#pragma once

#include <QString>

namespace tolvar {

/// What the build and the installation know of this program.
struct BundleInfo {
    /// "app.tolvar.Tolvar": names the desktop file, the D-Bus name, the icon and the log
    /// subsystem. Empty when the program does not run as a proper application.
    QString identifier;
    /// The name people see.
    QString name;
    /// The version people see, for example "0.1.0".
    QString shortVersion;
    /// Where newer versions are announced; empty when nowhere.
    QString updateFeedUrl;
    /// The folder of sounds and other resources.
    QString resourcesPath;
    /// The program itself, absolute.
    QString executablePath;
    /// The program that browsers start for the extension, absolute.
    QString browserHostPath;

    bool operator==(const BundleInfo&) const = default;
};

} // namespace tolvar
