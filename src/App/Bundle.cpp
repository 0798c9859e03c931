#include "App/Bundle.h"

#include "Build.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

QString browserHost(const QDir& programs) {
    const QString beside = programs.filePath(u"tolvar-browser-host"_s);
    return QFileInfo::exists(beside) ? beside
                                     : QDir::cleanPath(programs.filePath(Build::browserHost));
}

} // namespace

BundleInfo thisBundle() {
    const QDir programs(QCoreApplication::applicationDirPath());
    return {
        .identifier = Build::identifier,
        .name = Build::name,
        .shortVersion = Build::version,
        .updateFeedUrl = Build::updateFeedUrl,
        .resourcesPath = QDir::cleanPath(programs.filePath(Build::resources)),
        .executablePath = QCoreApplication::applicationFilePath(),
        .browserHostPath = browserHost(programs),
    };
}

} // namespace tolvar
