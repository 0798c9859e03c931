#include "Platform/Linux/Desktop/XdgIconThemeSettings.h"

#include "Platform/Linux/Desktop/DesktopEntries.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

struct Place {
    QLatin1StringView file;
    QLatin1StringView group;
    QLatin1StringView key;
};

constexpr Place places[] = {
    {"gtk-4.0/settings.ini"_L1, "[Settings]"_L1, "gtk-icon-theme-name"_L1},
    {"gtk-3.0/settings.ini"_L1, "[Settings]"_L1, "gtk-icon-theme-name"_L1},
    {"kdeglobals"_L1, "[Icons]"_L1, "Theme"_L1},
};

/// The value of a key in a file of groups and keys; empty when it is not there. Not QSettings,
/// which takes parts of such files for its own notation.
QString valueIn(const QString& path, const Place& place) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    bool isInGroup = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        const qsizetype equals = line.indexOf(u'=');
        if (line.startsWith(u'['))
            isInGroup = line == place.group;
        else if (isInGroup && equals > 0 && line.first(equals).trimmed() == place.key)
            return line.sliced(equals + 1).trimmed();
    }
    return {};
}

} // namespace

XdgIconThemeSettings::XdgIconThemeSettings(QStringList configFolders, QStringList dataFolders,
                                           QString home)
    : m_configFolders(std::move(configFolders))
    , m_dataFolders(std::move(dataFolders))
    , m_home(std::move(home)) {}

XdgIconThemeSettings XdgIconThemeSettings::ofThisDesktop() {
    return {QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation),
            DesktopEntries::dataFoldersOfThisDesktop(), QDir::homePath()};
}

QString XdgIconThemeSettings::themeName() const {
    for (const QString& folder : m_configFolders)
        for (const Place& place : places)
            if (QString name = valueIn(folder + u'/' + place.file, place); !name.isEmpty())
                return name;
    return {};
}

QStringList XdgIconThemeSettings::themeFolders() const {
    QStringList folders{m_home + u"/.icons"_s};
    for (const QString& folder : m_dataFolders)
        folders << folder + u"/icons"_s;
    return folders;
}

} // namespace tolvar
