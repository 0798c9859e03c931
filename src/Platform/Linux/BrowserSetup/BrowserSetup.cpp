#include "Platform/Linux/BrowserSetup/BrowserSetup.h"

#include "BrowserExtensionIds.h"
#include "Platform/Linux/BrowserSetup/KnownBrowsers.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;
using Kind = InstalledBrowsers::Kind;
using State = BrowserCompanion::State;

namespace {

/// Below both system folders of Mozilla's add-ons: the id of Firefox itself.
const QString firefoxFolder = u"{ec8030f7-c20a-464f-9b0e-13a3a9e97384}"_s;

QString addOnName() {
    return QString::fromLatin1(firefoxExtensionId) + u".xpi"_s;
}

State stateOf(const CompanionFiles& files) {
    switch (files.state()) {
    case CompanionFiles::State::absent:
        return State::notSetUp;
    case CompanionFiles::State::complete:
        return State::setUp;
    case CompanionFiles::State::different:
        return State::outOfDate;
    }
    Q_UNREACHABLE();
}

QString sandboxed(const QString& kind) {
    return u"it is installed as a %1, whose sandbox starts no program outside of it"_s.arg(kind);
}

std::optional<QByteArray> contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

/// The ids of the extensions that may not come back from outside, by a profile's file of
/// preferences.
QJsonArray externalUninstalls(const QString& preferences) {
    return QJsonDocument::fromJson(contentsOf(preferences).value_or(QByteArray()))
        .object()[u"extensions"_s][u"external_uninstalls"_s]
        .toArray();
}

bool calls(const QString& text, const QString& name) {
    return text.compare(name, Qt::CaseInsensitive) == 0;
}

/// XDG_CONFIG_HOME; a relative one is invalid and counts as unset, by the XDG Base Directory rules.
QString configFolderOfThisUser() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QDir::isAbsolutePath(folder) ? folder : QDir::homePath() + u"/.config"_s;
}

} // namespace

BrowserSetup::BrowserSetup(Environment environment)
    : m_environment(std::move(environment))
    , m_installed(m_environment.places) {}

BrowserSetup BrowserSetup::ofThisUser(const BrowserParts& parts) {
    return BrowserSetup({
        .parts = parts,
        .home = QDir::homePath(),
        .configFolder = configFolderOfThisUser(),
        .places = InstalledBrowsers::placesOfThisUser(),
        .firefoxAddOns = {u"/usr/share/mozilla/extensions/"_s + firefoxFolder,
                          u"/usr/lib/mozilla/extensions/"_s + firefoxFolder},
    });
}

QStringList BrowserSetup::known() const {
    QStringList ids;
    for (const KnownBrowser& browser : knownBrowsers())
        ids.append(browser.id);
    return ids;
}

std::optional<BrowserCompanion> BrowserSetup::find(const QString& name) const {
    for (const KnownBrowser& browser : knownBrowsers())
        if (calls(name, browser.id) || calls(name, browser.name) ||
            browser.programs.contains(name, Qt::CaseInsensitive))
            return companion(browser);
    return std::nullopt;
}

std::vector<BrowserCompanion> BrowserSetup::found() const {
    std::vector<BrowserCompanion> companions;
    for (const KnownBrowser& browser : knownBrowsers())
        if (m_installed.kindOf(browser) != Kind::absent ||
            filesOf(browser).state() != CompanionFiles::State::absent)
            companions.push_back(companion(browser));
    return companions;
}

BrowserCompanion BrowserSetup::companion(const KnownBrowser& browser) const {
    return {.id = browser.id,
            .name = browser.name,
            .state = stateOf(filesOf(browser)),
            .processes = browser.processes,
            .obstacle = obstacle(browser),
            .remainder = remainder(browser),
            .leftover = leftover(browser)};
}

std::optional<QString> BrowserSetup::obstacle(const KnownBrowser& browser) const {
    switch (m_installed.kindOf(browser)) {
    case Kind::absent:
        return u"it is not installed"_s;
    case Kind::ordinary:
        return std::nullopt;
    case Kind::flatpak:
        return sandboxed(u"Flatpak"_s);
    case Kind::snap:
        return sandboxed(u"Snap"_s);
    }
    Q_UNREACHABLE();
}

std::optional<QString> BrowserSetup::setUp(const QString& id) {
    const KnownBrowser* browser = knownBrowser(id);
    if (browser == nullptr)
        return u"Tolvar does not know it"_s;
    if (auto reason = obstacle(*browser))
        return reason;
    const CompanionFiles files = filesOf(*browser);
    if (const auto missing = files.missingPart())
        return u"there is no file “%1”; install Tolvar anew"_s.arg(*missing);
    return files.write();
}

std::optional<QString> BrowserSetup::remove(const QString& id) {
    const KnownBrowser* browser = knownBrowser(id);
    return browser != nullptr ? filesOf(*browser).remove() : std::nullopt;
}

CompanionFiles BrowserSetup::filesOf(const KnownBrowser& browser) const {
    return {browser, m_environment.parts, m_environment.home, m_environment.configFolder};
}

QString BrowserSetup::remainder(const KnownBrowser& browser) const {
    if (browser.family == KnownBrowser::Family::firefox)
        return hasFirefoxAddOn() ? QString() : howToAddToFirefox();
    if (wasRemovedInside(browser))
        return u"the extension Tolvar was removed inside it, and it does not take it again by "
               u"itself: "_s +
               howToLoadByHand();
    if (browser.experience == KnownBrowser::Experience::tried)
        return {};
    return u"untried with this browser: should it not have the extension Tolvar when it was "
           u"started anew, "_s +
           howToLoadByHand();
}

QString BrowserSetup::howToLoadByHand() const {
    return u"switch on “Developer mode” on its page of extensions and load the unpacked extension %1"_s
        .arg(m_environment.parts.unpackedExtension());
}

bool BrowserSetup::wasRemovedInside(const KnownBrowser& browser) const {
    const QDir folder(m_environment.configFolder + u'/' + browser.configFolder);
    const QStringList profiles = folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::any_of(profiles.begin(), profiles.end(), [&](const QString& profile) {
        return externalUninstalls(folder.filePath(profile + u"/Preferences"_s))
            .contains(QString::fromLatin1(chromiumExtensionId));
    });
}

QString BrowserSetup::leftover(const KnownBrowser& browser) const {
    const bool needsHands = browser.family == KnownBrowser::Family::firefox ||
                            browser.experience == KnownBrowser::Experience::untried ||
                            wasRemovedInside(browser);
    return needsHands
               ? u"if you added the extension by hand, remove it likewise, on its page of extensions"_s
               : QString();
}

/// Mozilla's builds take only what Mozilla signed. Debian's take what an administrator put into the
/// system's folder, and what people install after they switched the signatures off.
QString BrowserSetup::howToAddToFirefox() const {
    const QString package = m_environment.parts.firefoxPackage();
    const QString place = m_environment.firefoxAddOns.value(0) + u'/' + addOnName();
    return u"add the extension once; for all users: sudo install -D -m 644 '%1' '%2'; or for "
           u"yourself: set xpinstall.signatures.required to false on the page about:config, then "
           u"install %1 from file on the page about:addons; Firefox as Mozilla releases it takes "
           u"neither, because Mozilla did not sign the extension"_s.arg(package, place);
}

bool BrowserSetup::hasFirefoxAddOn() const {
    const auto package = contentsOf(m_environment.parts.firefoxPackage());
    const QStringList& folders = m_environment.firefoxAddOns;
    return package && std::any_of(folders.begin(), folders.end(), [&](const QString& folder) {
               return contentsOf(folder + u'/' + addOnName()) == package;
           });
}

} // namespace tolvar
