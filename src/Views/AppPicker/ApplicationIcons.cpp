#include "Views/AppPicker/ApplicationIcons.h"

#include "Platform/Interfaces/IconThemeSettings.h"
#include "Platform/Interfaces/Workspace.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPixmap>

#include <algorithm>
#include <utility>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

/// Where icons lie that are of no theme, as freedesktop icon themes have it.
constexpr QLatin1StringView unthemedFolder = "/usr/share/pixmaps"_L1;
/// Icons that programs name with their file's ending, which desktop entries should not.
constexpr QLatin1StringView endings[] = {".png"_L1, ".svg"_L1, ".xpm"_L1};

constexpr QLatin1StringView everybodysTheme = "hicolor"_L1;
/// Icons of programs that bring none to everybody's theme.
constexpr QLatin1StringView completeTheme = "Adwaita"_L1;

bool isInstalled(const QString& theme) {
    const QStringList folders = QIcon::themeSearchPaths();
    return !theme.isEmpty() && std::ranges::any_of(folders, [&](const QString& folder) {
        return QFileInfo::exists(folder + u'/' + theme + u"/index.theme"_s);
    });
}

/// Qt looks nowhere else when a theme is not there.
void useTheme(const QString& wanted) {
    const QString known =
        isInstalled(QIcon::themeName()) ? QIcon::themeName() : QString(everybodysTheme);
    const QString name = isInstalled(wanted) ? wanted : known;
    if (name != QIcon::themeName())
        QIcon::setThemeName(name);
    const QString fallback = isInstalled(completeTheme) ? completeTheme : everybodysTheme;
    if (fallback != QIcon::fallbackThemeName())
        QIcon::setFallbackThemeName(fallback);
}

QIcon themedIcon(const QString& name) {
    if (QDir::isAbsolutePath(name))
        return QFileInfo(name).isFile() ? QIcon(name) : QIcon();
    if (QIcon icon = QIcon::fromTheme(name); !icon.isNull())
        return icon;
    for (const auto ending : endings)
        if (name.endsWith(ending))
            return QIcon::fromTheme(name.chopped(ending.size()));
    return {};
}

QIcon iconOf(const std::vector<ArgbPicture>& pictures) {
    QIcon icon;
    for (const ArgbPicture& picture : pictures) {
        const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width,
                           picture.height, picture.width * 4, QImage::Format_ARGB32);
        icon.addPixmap(QPixmap::fromImage(image.copy()));
    }
    return icon;
}

bool hasPicture(const QIcon& icon) {
    return !icon.isNull() && !icon.pixmap(QSize(16, 16), 1).isNull();
}

} // namespace

ApplicationIcons::ApplicationIcons(const Environment& environment)
    : m_environment(environment) {}

void ApplicationIcons::adoptTheme() {
    QStringList folders = m_environment.theme.themeFolders();
    for (const QString& known : QIcon::themeSearchPaths())
        if (!folders.contains(known))
            folders << known;
    if (folders != QIcon::themeSearchPaths())
        QIcon::setThemeSearchPaths(folders);
    if (!QIcon::fallbackSearchPaths().contains(unthemedFolder))
        QIcon::setFallbackSearchPaths(QIcon::fallbackSearchPaths() << unthemedFolder);
    useTheme(m_environment.theme.themeName());
}

void ApplicationIcons::refresh() {
    m_installed.reset();
    m_running.reset();
    m_icons.clear();
    m_isThemeKnown = false;
}

void ApplicationIcons::refresh(std::vector<InstalledApplication> installed) {
    refresh();
    m_installed = std::move(installed);
}

const std::vector<InstalledApplication>& ApplicationIcons::installed() {
    if (!m_installed)
        m_installed = m_environment.installed.list();
    return *m_installed;
}

const std::vector<RunningApplication>& ApplicationIcons::running() {
    if (!m_running)
        m_running = m_environment.workspace.runningApplications();
    return *m_running;
}

bool ApplicationIcons::appExists(const QString& name) {
    return std::ranges::any_of(installed(),
                               [&](const auto& each) { return each.displayName == name; }) ||
           std::ranges::any_of(running(),
                               [&](const auto& each) { return each.localizedName == name; });
}

QIcon ApplicationIcons::find(const QString& named) {
    const auto known = m_icons.constFind(named);
    return known != m_icons.constEnd() ? *known : *m_icons.insert(named, load(named));
}

QIcon ApplicationIcons::load(const QString& name) {
    if (!std::exchange(m_isThemeKnown, true))
        adoptTheme();
    for (const InstalledApplication& application : installed())
        if (application.displayName == name && !application.iconName.isEmpty())
            if (QIcon icon = themedIcon(application.iconName); hasPicture(icon))
                return icon;
    for (const RunningApplication& application : running())
        if (application.localizedName == name)
            if (QIcon icon = iconOf(m_environment.workspace.icon(application.handle));
                !icon.isNull())
                return icon;
    return {};
}

} // namespace tolvar
