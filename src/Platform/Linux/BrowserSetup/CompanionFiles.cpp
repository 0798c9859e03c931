#include "Platform/Linux/BrowserSetup/CompanionFiles.h"

#include "BrowserExtensionIds.h"
#include "Platform/Linux/BrowserSetup/KnownBrowsers.h"
#include "Platform/Linux/BrowserSetup/TracelessFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

/// How extensions call the host, and with its ending the name of the manifest.
const QString hostName = u"app.tolvar.browser"_s;
/// Our files are smaller; what is larger is not ours.
constexpr qint64 largestFile = 64 * 1024;

QString chromiumId() {
    return QString::fromLatin1(chromiumExtensionId);
}

QByteArray document(const QJsonObject& object) {
    return QJsonDocument(object).toJson();
}

/// Chromium's and Mozilla's "native messaging" manifest; they differ in how they name who may call.
QByteArray manifest(const BrowserParts& parts, const QString& callersKey, const QString& caller) {
    return document({
        {u"name"_s, hostName},
        {u"description"_s, u"Lets Tolvar see and redirect the shown tabs"_s},
        {u"path"_s, parts.host},
        {u"type"_s, u"stdio"_s},
        {callersKey, QJsonArray{caller}},
    });
}

QByteArray chromiumManifest(const BrowserParts& parts) {
    return manifest(parts, u"allowed_origins"_s, u"chrome-extension://%1/"_s.arg(chromiumId()));
}

QByteArray firefoxManifest(const BrowserParts& parts) {
    return manifest(parts, u"allowed_extensions"_s, QString::fromLatin1(firefoxExtensionId));
}

QByteArray externalExtension(const BrowserParts& parts) {
    return document({
        {u"external_crx"_s, parts.chromiumPackage()},
        {u"external_version"_s, QString::fromLatin1(extensionVersion)},
    });
}

/// Nothing when there is no regular file of a likely size.
std::optional<QByteArray> contentsOf(const QString& path) {
    const QFileInfo info(path);
    QFile file(path);
    if (!info.isFile() || info.size() > largestFile || !file.open(QFile::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

/// Browsers read files alone; a link counts wherever it leads. Anything else is not ours to remove.
bool isPresent(const QString& path) {
    const QFileInfo info(path);
    return info.isFile() || info.isSymLink();
}

bool pointsToTolvar(const QString& entry) {
    const auto object = QJsonDocument::fromJson(contentsOf(entry).value_or(QByteArray())).object();
    return object.value(u"external_crx"_s).toString().endsWith(u"/tolvar.crx");
}

} // namespace

CompanionFiles::CompanionFiles(const KnownBrowser& browser, const BrowserParts& parts,
                               const QString& home, const QString& configFolder)
    : m_neededParts({parts.host}) {
    const QString manifestName = hostName + u".json"_s;
    if (browser.family == KnownBrowser::Family::firefox) {
        m_files = {
            {home + u"/.mozilla/native-messaging-hosts/"_s + manifestName, firefoxManifest(parts)}};
        return;
    }
    const QString folder = configFolder + u'/' + browser.configFolder;
    m_extensionsFolder = folder + u"/External Extensions"_s;
    m_neededParts.append(parts.chromiumPackage());
    m_files = {
        {folder + u"/NativeMessagingHosts/"_s + manifestName, chromiumManifest(parts)},
        {m_extensionsFolder + u'/' + chromiumId() + u".json"_s, externalExtension(parts)},
    };
}

CompanionFiles::State CompanionFiles::state() const {
    if (presentPaths().isEmpty())
        return State::absent;
    const bool isComplete = !missingPart() && strays().isEmpty() &&
                            std::all_of(m_files.begin(), m_files.end(), [](const File& file) {
                                return contentsOf(file.path) == file.contents;
                            });
    return isComplete ? State::complete : State::different;
}

std::optional<QString> CompanionFiles::missingPart() const {
    const auto missing =
        std::find_if_not(m_neededParts.begin(), m_neededParts.end(),
                         [](const QString& path) { return QFileInfo(path).isFile(); });
    return missing != m_neededParts.end() ? std::optional(*missing) : std::nullopt;
}

std::optional<QString> CompanionFiles::write() const {
    const bool isNew = state() == State::absent;
    std::optional<QString> failure;
    for (const File& file : m_files)
        if (!failure && contentsOf(file.path) != file.contents)
            failure = TracelessFiles::write(file.path, file.contents);
    if (failure && isNew)
        static_cast<void>(remove());
    return failure ? failure : removeStrays();
}

std::optional<QString> CompanionFiles::remove() const {
    QStringList paths = strays();
    for (const File& file : m_files)
        paths.append(file.path);
    return TracelessFiles::remove(paths);
}

/// Their folder is still needed.
std::optional<QString> CompanionFiles::removeStrays() const {
    for (const QString& path : strays())
        if (QFile file(path); !file.remove())
            return u"the file “%1” could not be removed: %2"_s.arg(path, file.errorString());
    return std::nullopt;
}

QStringList CompanionFiles::strays() const {
    const QString current = chromiumId() + u".json"_s;
    QStringList paths;
    const QDir folder(m_extensionsFolder);
    if (m_extensionsFolder.isEmpty())
        return paths;
    for (const QString& name : folder.entryList({u"*.json"_s}, QDir::Files | QDir::Hidden))
        if (name != current && pointsToTolvar(folder.filePath(name)))
            paths.append(folder.filePath(name));
    return paths;
}

QStringList CompanionFiles::presentPaths() const {
    QStringList paths = strays();
    for (const File& file : m_files)
        if (isPresent(file.path))
            paths.append(file.path);
    return paths;
}

} // namespace tolvar
