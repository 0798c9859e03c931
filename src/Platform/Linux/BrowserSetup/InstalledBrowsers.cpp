#include "Platform/Linux/BrowserSetup/InstalledBrowsers.h"

#include "Platform/Linux/BrowserSetup/KnownBrowsers.h"
#include "Platform/Linux/Desktop/DesktopEntries.h"
#include "Platform/Linux/Desktop/DesktopEntryFile.h"
#include "Platform/Linux/Desktop/ExecLine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

/// Scripts that start something else are shorter.
constexpr qint64 longestScript = 16 * 1024;

template<typename Predicate>
bool anyOf(const QStringList& texts, Predicate predicate) {
    return std::any_of(texts.begin(), texts.end(), predicate);
}

bool isProgram(const QString& path) {
    const QFileInfo info(path);
    return info.isFile() && info.isExecutable();
}

/// What of the file is text, when it is a script.
QByteArray scriptText(const QString& path) {
    QFile file(path);
    if (file.size() > longestScript || !file.open(QFile::ReadOnly) || file.peek(2) != "#!")
        return {};
    return file.readAll();
}

/// The program of a desktop entry that names it by its whole path; wrappers are no browsers.
QString programOfEntry(const QString& path) {
    const auto entry = DesktopEntryFile::read(path);
    const QString program = entry ? execArguments(entry->string(u"Exec"_s)).value(0) : QString();
    const QString name = QFileInfo(program).fileName();
    const bool isWrapper = name == u"env" || name == u"flatpak" || name == u"snap" || name == u"sh";
    return QDir::isAbsolutePath(program) && !isWrapper ? program : QString();
}

} // namespace

InstalledBrowsers::Places InstalledBrowsers::placesOfThisUser() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    Places places = {
        .programs = qEnvironmentVariable("PATH").split(u':', Qt::SkipEmptyParts),
        .entries = DesktopEntries::dataFoldersOfThisDesktop(),
        .flatpaks = {data + u"/flatpak/exports"_s, u"/var/lib/flatpak/exports"_s},
        .snaps = {u"/snap/bin"_s, u"/var/lib/snapd/snap/bin"_s},
    };
    places.entries.removeIf([](const QString& folder) {
        return folder.contains(u"/flatpak/"_s) || folder.contains(u"/snapd/"_s);
    });
    return places;
}

InstalledBrowsers::Kind InstalledBrowsers::kindOf(const KnownBrowser& browser) const {
    if (isOrdinary(browser))
        return Kind::ordinary;
    if (isFlatpak(browser))
        return Kind::flatpak;
    return isSnap(browser) ? Kind::snap : Kind::absent;
}

bool InstalledBrowsers::isOrdinary(const KnownBrowser& browser) const {
    return anyOf(browser.programs, [&](const QString& program) {
        const auto starts = [&](const QString& path) {
            return isProgram(path) && !isSnapProgram(path);
        };
        return anyOf(m_places.programs,
                     [&](const QString& folder) { return starts(folder + u'/' + program); }) ||
               anyOf(m_places.entries, [&](const QString& folder) {
                   return starts(
                       programOfEntry(folder + u"/applications/"_s + program + u".desktop"_s));
               });
    });
}

bool InstalledBrowsers::isFlatpak(const KnownBrowser& browser) const {
    return anyOf(browser.flatpaks, [this](const QString& id) {
        return anyOf(m_places.flatpaks, [&](const QString& folder) {
            return QFile::exists(folder + u"/share/applications/"_s + id + u".desktop"_s) ||
                   QFile::exists(folder + u"/bin/"_s + id);
        });
    });
}

bool InstalledBrowsers::isSnap(const KnownBrowser& browser) const {
    return anyOf(browser.programs, [this](const QString& program) {
        return anyOf(m_places.snaps, [&](const QString& folder) {
            return QFileInfo(folder + u'/' + program).isSymLink() ||
                   QFile::exists(folder + u'/' + program);
        });
    });
}

bool InstalledBrowsers::isSnapProgram(const QString& path) const {
    const QString target = QFileInfo(path).canonicalFilePath();
    if (QFileInfo(target).fileName() == u"snap")
        return true;
    const QByteArray script = scriptText(path);
    return anyOf(m_places.snaps, [&](const QString& folder) {
        const QString prefix = folder + u'/';
        return path.startsWith(prefix) || target.startsWith(prefix) ||
               script.contains(QFile::encodeName(prefix));
    });
}

} // namespace tolvar
