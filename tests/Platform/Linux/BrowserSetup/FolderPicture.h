#pragma once

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <map>
#include <string>

namespace tolvar::test {

/// All that is in a folder and below it, by paths: the modes, what links point to, and the bytes of
/// files.
inline std::map<std::string, std::string> pictureOf(const QString& folder) {
    std::map<std::string, std::string> picture;
    QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        const QFileInfo info(path);
        std::string facts = QString::number(info.permissions().toInt(), 16).toStdString();
        QFile file(path);
        if (info.isSymLink())
            facts += " -> " + QFile::symLinkTarget(path).toStdString();
        else if (info.isFile() && file.open(QFile::ReadOnly))
            facts += ' ' + file.readAll().toStdString();
        picture.emplace(path.toStdString(), facts);
    }
    return picture;
}

/// Writes a file with the folders above it.
inline void putFile(const QString& path, const QByteArray& contents = {}) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QFile::WriteOnly))
        file.write(contents);
}

inline void putProgram(const QString& path, const QByteArray& contents = "#!/bin/sh\n") {
    putFile(path, contents);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace tolvar::test
