#include "Platform/Linux/Desktop/XdgLoginItemService.h"

#include "Platform/Linux/Desktop/DesktopEntryFile.h"
#include "Platform/Linux/Desktop/ExecLine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

QByteArray entryStarting(const QString& program) {
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Tolvar\n"
           "Comment=A focus timer\n"
           "Icon=app.tolvar.Tolvar\n"
           "Exec=" +
           escapedDesktopString(quotedForExec(program)).toUtf8() +
           "\n"
           "Terminal=false\n"
           "X-GNOME-Autostart-enabled=true\n";
}

bool isSwitchedOff(const DesktopEntryFile& entry) {
    return entry.boolean(u"Hidden"_s) || !entry.boolean(u"X-GNOME-Autostart-enabled"_s, true);
}

/// A link to a file is written through, as people who keep their settings elsewhere expect; any
/// other link would swallow the entry.
void removeIdleLink(const QString& path) {
    const QFileInfo info(path);
    if (info.isSymLink() && !info.isFile())
        QFile::remove(path);
}

} // namespace

XdgLoginItemService::XdgLoginItemService(QString executablePath, const QString& configFolder)
    : m_executablePath(std::move(executablePath))
    , m_entryPath(configFolder + u"/autostart/app.tolvar.Tolvar.desktop"_s) {}

XdgLoginItemService XdgLoginItemService::ofThisUser(const QString& executablePath) {
    return {executablePath,
            QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)};
}

bool XdgLoginItemService::hasProgram() const {
    const QFileInfo program(m_executablePath);
    return program.isAbsolute() && program.isFile() && program.isExecutable();
}

LoginItemStatus XdgLoginItemService::status() const {
    if (!hasProgram())
        return LoginItemStatus::notFound;
    const auto entry = DesktopEntryFile::read(m_entryPath);
    if (!entry || entry->string(u"Exec"_s).isEmpty())
        return LoginItemStatus::notRegistered;
    return isSwitchedOff(*entry) ? LoginItemStatus::requiresApproval : LoginItemStatus::enabled;
}

std::optional<QString> XdgLoginItemService::registerItem() {
    if (!hasProgram())
        return u"There is no program at “%1”."_s.arg(m_executablePath);
    const QString folder = QFileInfo(m_entryPath).path();
    if (!QDir().mkpath(folder))
        return u"The folder “%1” could not be made."_s.arg(folder);
    removeIdleLink(m_entryPath);
    QSaveFile file(m_entryPath);
    if (!file.open(QFile::WriteOnly) || file.write(entryStarting(m_executablePath)) < 0 ||
        !file.commit())
        return u"The file “%1” could not be written: %2."_s.arg(m_entryPath, file.errorString());
    return std::nullopt;
}

std::optional<QString> XdgLoginItemService::unregisterItem() {
    QFile file(m_entryPath);
    const bool present = file.exists() || QFileInfo(m_entryPath).isSymLink();
    if (present && !file.remove())
        return u"The file “%1” could not be removed: %2."_s.arg(m_entryPath, file.errorString());
    return std::nullopt;
}

} // namespace tolvar
