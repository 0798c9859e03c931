#include "App/Bundle.h"

#include "Build.h"

#include <QCoreApplication>
#include <QDir>

namespace tolvar {

BundleInfo thisBundle() {
    const QDir programs(QCoreApplication::applicationDirPath());
    return {
        .identifier = Build::identifier,
        .name = Build::name,
        .shortVersion = Build::version,
        .updateFeedUrl = Build::updateFeedUrl,
        .resourcesPath = QDir::cleanPath(programs.filePath(Build::resources)),
        .executablePath = QCoreApplication::applicationFilePath(),
    };
}

} // namespace tolvar
