#include "Platform/Linux/Desktop/DesktopEntries.h"

#include "Platform/Linux/Desktop/DesktopEntryFile.h"
#include "Platform/Linux/Desktop/ExecLine.h"

#include <QDir>
#include <QDirIterator>
#include <QStandardPaths>

#include <map>
#include <optional>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

/// Which entries this desktop shows, and in which language.
struct Viewer {
    const QStringList& desktops;
    QStringList locales;
};

bool programExists(const QString& tryExec) {
    return !QStandardPaths::findExecutable(tryExec).isEmpty();
}

/// The first desktop that either list names decides; without one, only an entry that is meant for
/// certain desktops stays hidden.
bool shownOn(const QStringList& desktops, const DesktopEntryFile& file) {
    const QStringList onlyShowIn = file.strings(u"OnlyShowIn"_s);
    const QStringList notShowIn = file.strings(u"NotShowIn"_s);
    for (const auto& desktop : desktops) {
        if (onlyShowIn.contains(desktop))
            return true;
        if (notShowIn.contains(desktop))
            return false;
    }
    return !file.contains(u"OnlyShowIn"_s);
}

/// Nothing when the file is no entry of an application with a name, or one marked as deleted.
std::optional<DesktopEntry> readEntry(const QString& path, const QString& id,
                                      const Viewer& viewer) {
    const auto file = DesktopEntryFile::read(path);
    if (!file || file->string(u"Type"_s) != u"Application" || file->boolean(u"Hidden"_s))
        return std::nullopt;
    const QString name = file->localizedString(u"Name"_s, viewer.locales);
    if (name.isEmpty())
        return std::nullopt;
    const QString tryExec = file->string(u"TryExec"_s);
    return DesktopEntry{
        .id = id,
        .name = name,
        .iconName = file->localizedString(u"Icon"_s, viewer.locales),
        .program = startedProgram(execArguments(file->string(u"Exec"_s))),
        .startupWmClass = file->string(u"StartupWMClass"_s),
        .noDisplay = file->boolean(u"NoDisplay"_s),
        .appliesHere =
            shownOn(viewer.desktops, *file) && (tryExec.isEmpty() || programExists(tryExec)),
    };
}

/// Paths below `folder`, sorted, so that which of two files with one id counts does not depend on
/// the file system.
QStringList desktopFilesBelow(const QString& folder) {
    QStringList paths;
    QDirIterator files(folder, {u"*.desktop"_s}, QDir::Files | QDir::System | QDir::Hidden,
                       QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (files.hasNext())
        paths.append(files.next());
    paths.sort();
    return paths;
}

QString idOf(const QString& path, const QString& folder) {
    return QDir(folder)
        .relativeFilePath(path)
        .chopped(QStringView(u".desktop").size())
        .replace(u'/', u'-');
}

/// The locale of messages; LANGUAGE goes first, as it does in translated programs, unless the
/// locale is the one without a language.
QString messageLocale() {
    QString locale;
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (locale.isEmpty())
            locale = qEnvironmentVariable(variable);
    if (locale.isEmpty() || locale == u"C" || locale == u"POSIX")
        return {};
    const QString languages = qEnvironmentVariable("LANGUAGE");
    return languages.isEmpty() ? locale : languages + u':' + locale;
}

} // namespace

DesktopEntries::DesktopEntries(QStringList dataFolders, QStringList desktops, QString locale)
    : m_dataFolders(std::move(dataFolders))
    , m_desktops(std::move(desktops))
    , m_locale(std::move(locale)) {}

DesktopEntries DesktopEntries::ofThisDesktop() {
    return DesktopEntries(
        dataFoldersOfThisDesktop(),
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts),
        messageLocale());
}

/// Desktops usually list the folders of Flatpak and Snap themselves, in their own order.
QStringList DesktopEntries::dataFoldersOfThisDesktop() {
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    folders << QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                   u"/flatpak/exports/share"_s
            << u"/var/lib/flatpak/exports/share"_s << u"/var/lib/snapd/desktop"_s;
    for (QString& folder : folders)
        folder = QDir::cleanPath(folder);
    folders.removeDuplicates();
    return folders;
}

std::vector<DesktopEntry> DesktopEntries::load() const {
    const Viewer viewer{m_desktops, matchingLocales(m_locale)};
    std::map<QString, std::optional<DesktopEntry>> entries;
    for (const auto& dataFolder : m_dataFolders) {
        const QString folder = dataFolder + u"/applications"_s;
        for (const auto& path : desktopFilesBelow(folder))
            if (const QString id = idOf(path, folder); !entries.contains(id))
                entries.emplace(id, readEntry(path, id, viewer));
    }
    std::vector<DesktopEntry> present;
    for (auto& [id, entry] : entries)
        if (entry)
            present.push_back(std::move(*entry));
    return present;
}

} // namespace tolvar
