#include "Platform/Common/PrivateFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tolvar::PrivateFile {

using namespace Qt::StringLiterals;

namespace {

constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner;
constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
constexpr QLatin1StringView helperEndings[] = {"-wal"_L1, "-shm"_L1};

void makeFolder(const QString& path) {
    if (QFileInfo::exists(path))
        return;
    makeFolder(QFileInfo(path).path());
    QDir().mkdir(path, ownerOnly | QFile::ExeOwner);
}

void closeToOthers(const QString& path) {
    const QFileInfo info(path);
    if (info.isFile() && (info.permissions() & others))
        QFile::setPermissions(path, ownerOnly);
}

} // namespace

void prepare(const QString& path) {
    // SQLite, too, follows a link to a file that is still to be made.
    const QFileInfo info(path);
    const QString filePath = info.isSymLink() ? info.symLinkTarget() : path;
    makeFolder(QFileInfo(filePath).path());
    // Opened only when it is new: closing a second handle of an open database would drop its locks.
    if (QFile file(filePath); !file.exists())
        file.open(QFile::WriteOnly | QFile::NewOnly, ownerOnly);
    closeToOthers(filePath);
    for (const auto ending : helperEndings)
        closeToOthers(filePath + ending);
}

std::optional<QString> moveAside(const QString& filePath) {
    const QString time = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd'T'HHmmss.zzz'Z'"_s);
    const QString aside = filePath + u".corrupt-"_s + time;
    // The log goes first: left alone it would be taken for the log of the next file.
    for (const auto ending : helperEndings)
        QDir().rename(filePath + ending, aside + ending);
    return QDir().rename(filePath, aside) ? std::optional(aside) : std::nullopt;
}

} // namespace tolvar::PrivateFile
