#include "Platform/Linux/BrowserSetup/TracelessFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace tolvar::TracelessFiles {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;

QString because(int error) {
    return QString::fromLocal8Bit(std::strerror(error));
}

QString folderOf(const QString& path) {
    return QFileInfo(path).path();
}

QString markOf(const QString& folder) {
    return folder + u"/.app.tolvar.made"_s;
}

/// A file or folder while it is being made; one that was left over by a crash is made anew.
QString draftOf(const QString& path) {
    return path + u".app.tolvar.new"_s;
}

/// Whether something has the name, be it a link to nowhere.
bool isOccupied(const QString& path) {
    struct stat status = {};
    return ::lstat(QFile::encodeName(path), &status) == 0;
}

bool unlinked(const QString& path) {
    return ::unlink(QFile::encodeName(path)) == 0 || errno == ENOENT || errno == ENOTDIR;
}

/// Makes a private file of these contents where none is; 0, or the error number.
int create(const QString& path, const QByteArray& contents) {
    const int descriptor = ::open(QFile::encodeName(path),
                                  O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, ownerOnly);
    if (descriptor < 0)
        return errno;
    errno = 0;
    const bool isWritten = ::write(descriptor, contents.data(),
                                   static_cast<size_t>(contents.size())) == contents.size() &&
                           ::fsync(descriptor) == 0;
    const int error = isWritten ? 0 : (errno != 0 ? errno : ENOSPC);
    ::close(descriptor);
    return error;
}

/// Takes back a folder that did not get its name.
void removeDraftOfFolder(const QString& path) {
    unlinked(markOf(draftOf(path)));
    ::rmdir(QFile::encodeName(draftOf(path)));
}

/// A folder gets its name when it has its mark, so that no crash leaves one without; 0, or the
/// error number.
int makeMarkedFolder(const QString& path) {
    const QByteArray draft = QFile::encodeName(draftOf(path));
    removeDraftOfFolder(path);
    int error = ::mkdir(draft, S_IRWXU) == 0 ? create(markOf(draftOf(path)), {}) : errno;
    if (error == 0 && std::rename(draft, QFile::encodeName(path)) != 0)
        error = errno;
    if (error != 0)
        removeDraftOfFolder(path);
    return error;
}

/// 0, or the error number; what was made before the error stays for `releaseFolders`.
int makeFolder(const QString& path) {
    if (QFileInfo(path).isDir())
        return 0;
    if (const int error = isOccupied(path) ? ENOTDIR : makeFolder(folderOf(path)))
        return error;
    return makeMarkedFolder(path);
}

QStringList namesIn(const QString& folder, QDir::Filters filters) {
    return QDir(folder).entryList(filters | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

/// Whether the folder holds nothing but its mark.
bool isVacant(const QString& folder) {
    return namesIn(folder, QDir::AllEntries).size() == 1;
}

/// Whether a folder in this one was made too: then this one may have to go with it yet.
bool hasMadeFolders(const QString& folder) {
    const QStringList names = namesIn(folder, QDir::Dirs);
    return std::any_of(names.begin(), names.end(), [&](const QString& name) {
        return isOccupied(markOf(folder + u'/' + name));
    });
}

/// 0, or the error number.
int removeFolder(const QString& folder) {
    const bool isGone = ::rmdir(QFile::encodeName(folder)) == 0;
    return isGone || errno == ENOTEMPTY ? 0 : errno;
}

/// The lowest folder above the path that there is; takes away drafts of those that are missing.
QString presentFolderOf(const QString& path) {
    QString folder = folderOf(path);
    if (QFileInfo(folder).isDir() || folder == path)
        return folder;
    removeDraftOfFolder(folder);
    return presentFolderOf(folder);
}

/// Lets go of the folders above the path as far as they were made and are not needed; 0, or the
/// error number.
int releaseFolders(const QString& path) {
    for (QString folder = presentFolderOf(path); isOccupied(markOf(folder));
         folder = folderOf(folder)) {
        const bool goes = isVacant(folder);
        if (!goes && hasMadeFolders(folder))
            return 0;
        if (!unlinked(markOf(folder)))
            return errno;
        if (const int error = goes ? removeFolder(folder) : 0)
            return error;
    }
    return 0;
}

/// Leaves nothing behind of a writing that failed.
QString undone(const QString& path, int error) {
    unlinked(draftOf(path));
    if (!isOccupied(path))
        releaseFolders(path);
    return u"the file “%1” could not be written: %2"_s.arg(path, because(error));
}

} // namespace

std::optional<QString> write(const QString& path, const QByteArray& contents) {
    const QString draft = draftOf(path);
    int error = makeFolder(folderOf(path));
    if (error == 0 && !unlinked(draft))
        error = errno;
    if (error == 0)
        error = create(draft, contents);
    if (error == 0 && std::rename(QFile::encodeName(draft), QFile::encodeName(path)) != 0)
        error = errno;
    return error == 0 ? std::nullopt : std::optional(undone(path, error));
}

std::optional<QString> remove(const QStringList& paths) {
    std::optional<QString> failure;
    for (const QString& path : paths)
        if (!unlinked(path) || !unlinked(draftOf(path)))
            failure = u"the file “%1” could not be removed: %2"_s.arg(path, because(errno));
    for (const QString& path : failure ? QStringList() : paths)
        if (const int error = releaseFolders(path))
            failure =
                u"the folder “%1” could not be removed: %2"_s.arg(folderOf(path), because(error));
    return failure;
}

} // namespace tolvar::TracelessFiles
