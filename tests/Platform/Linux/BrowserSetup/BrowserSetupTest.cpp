#include "Platform/Linux/BrowserSetup/BrowserSetup.h"

#include "BrowserExtensionIds.h"
#include "FolderPicture.h"
#include "Platform/Linux/BrowserSetup/KnownBrowsers.h"
#include "Support/ChildProcess.h"
#include "Support/Texts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using State = BrowserCompanion::State;
using test::pictureOf;
using test::putFile;
using test::putProgram;
using testing::HasSubstr;

const QString manifestName = u"app.tolvar.browser.json"_s;
const QString chromiumId = QString::fromLatin1(chromiumExtensionId);

class BrowserSetupTest : public testing::Test {
protected:
    BrowserSetupTest() {
        putProgram(m_environment.parts.host);
        putFile(m_environment.parts.chromiumPackage());
        putFile(m_environment.parts.firefoxPackage(), "of this version");
        QDir().mkpath(home());
    }

    QString path(const QString& name) const { return m_root.filePath(name); }
    QString home(const QString& name = {}) const { return path(u"home/"_s + name); }
    void install(const QString& program) { putProgram(path(u"bin/"_s + program)); }
    BrowserSetup setup() const { return BrowserSetup(m_environment); }

    /// The browser's state; a failure when it is not found.
    State state(const QString& id) const {
        for (const BrowserCompanion& browser : setup().found())
            if (browser.id == id)
                return browser.state;
        ADD_FAILURE() << id.toStdString() << " is not found";
        return State::notSetUp;
    }
    static QJsonObject json(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
        return QJsonDocument::fromJson(file.readAll()).object();
    }
    QString manifest() const {
        return home(u".config/chromium/NativeMessagingHosts/"_s + manifestName);
    }
    QString external() const {
        return home(u".config/chromium/External Extensions/%1.json"_s.arg(chromiumId));
    }

    QTemporaryDir m_root;
    BrowserSetup::Environment m_environment = {
        .parts = {.host = path(u"lib/tolvar-browser-host"_s), .extensions = path(u"ext"_s)},
        .home = path(u"home"_s),
        .configFolder = path(u"home/.config"_s),
        .places = {.programs = {path(u"bin"_s)},
                   .entries = {},
                   .flatpaks = {path(u"exports"_s)},
                   .snaps = {path(u"snap/bin"_s)}},
        .firefoxAddOns = {path(u"add-ons"_s), path(u"more add-ons"_s)},
    };
};

TEST_F(BrowserSetupTest, PointsChromiumToTheHostAndTheExtension) {
    install(u"chromium"_s);
    EXPECT_EQ(state(u"chromium"_s), State::notSetUp);
    ASSERT_EQ(setup().setUp(u"chromium"_s), std::nullopt);
    EXPECT_EQ(state(u"chromium"_s), State::setUp);
    const QJsonObject host = json(manifest());
    EXPECT_EQ(host[u"name"], u"app.tolvar.browser"_s);
    EXPECT_EQ(host[u"type"], u"stdio"_s);
    EXPECT_EQ(host[u"path"], m_environment.parts.host);
    EXPECT_EQ(host[u"allowed_origins"], QJsonArray{u"chrome-extension://%1/"_s.arg(chromiumId)});
    EXPECT_FALSE(host.contains(u"allowed_extensions"));
    const QJsonObject extension = json(external());
    EXPECT_EQ(extension[u"external_crx"], m_environment.parts.chromiumPackage());
    EXPECT_EQ(extension[u"external_version"], QString::fromLatin1(extensionVersion));
}

TEST_F(BrowserSetupTest, PointsFirefoxToTheHost) {
    install(u"firefox-esr"_s);
    ASSERT_EQ(setup().setUp(u"firefox"_s), std::nullopt);
    EXPECT_EQ(state(u"firefox"_s), State::setUp);
    const QJsonObject host = json(home(u".mozilla/native-messaging-hosts/"_s + manifestName));
    EXPECT_EQ(host[u"name"], u"app.tolvar.browser"_s);
    EXPECT_EQ(host[u"path"], m_environment.parts.host);
    EXPECT_EQ(host[u"allowed_extensions"], QJsonArray{QString::fromLatin1(firefoxExtensionId)});
    EXPECT_FALSE(host.contains(u"allowed_origins"));
}

TEST_F(BrowserSetupTest, SetsEachBrowserUpInItsOwnFolder) {
    const std::pair<QString, QString> folders[] = {
        {u"chromium"_s, u"chromium"_s},
        {u"chrome"_s, u"google-chrome"_s},
        {u"brave"_s, u"BraveSoftware/Brave-Browser"_s},
        {u"edge"_s, u"microsoft-edge"_s},
        {u"vivaldi"_s, u"vivaldi"_s},
        {u"opera"_s, u"opera"_s},
    };
    m_environment.configFolder = path(u"elsewhere"_s);
    for (const auto& [id, folder] : folders) {
        install(knownBrowser(id)->programs.last());
        ASSERT_EQ(setup().setUp(id), std::nullopt);
        EXPECT_TRUE(QFile::exists(
            path(u"elsewhere/%1/NativeMessagingHosts/%2"_s.arg(folder, manifestName))));
        EXPECT_TRUE(QFile::exists(
            path(u"elsewhere/%1/External Extensions/%2.json"_s.arg(folder, chromiumId))));
    }
    EXPECT_EQ(pictureOf(home()).size(), 0u);
}

TEST_F(BrowserSetupTest, LeavesNoTraceOfAnyBrowserInWhateverOrderTheyGo) {
    for (const KnownBrowser& browser : knownBrowsers())
        install(browser.programs.first());
    const auto before = pictureOf(home());
    QStringList ids = setup().known();
    for (int turn = 0; turn < ids.size(); ++turn, ids.append(ids.takeFirst())) {
        for (const QString& id : setup().known())
            ASSERT_EQ(setup().setUp(id), std::nullopt);
        for (const QString& id : ids)
            ASSERT_EQ(setup().remove(id), std::nullopt);
        EXPECT_EQ(pictureOf(home()), before);
    }
}

TEST_F(BrowserSetupTest, LeavesAFolderOfTheBrowserAsItWas) {
    install(u"chromium"_s);
    install(u"firefox"_s);
    putFile(home(u".config/chromium/NativeMessagingHosts/org.other.json"_s), "{}");
    putFile(home(u".config/chromium/External Extensions/abc.json"_s),
            R"({"external_crx": "/opt/other.crx"})");
    QDir().mkpath(home(u".mozilla/native-messaging-hosts"_s));
    const auto before = pictureOf(home());
    for (const auto& id : {u"chromium"_s, u"firefox"_s})
        ASSERT_EQ(setup().setUp(id), std::nullopt);
    for (const auto& [file, facts] : before)
        EXPECT_EQ(pictureOf(home())[file], facts) << file;
    for (const auto& id : {u"chromium"_s, u"firefox"_s})
        ASSERT_EQ(setup().remove(id), std::nullopt);
    EXPECT_EQ(pictureOf(home()), before);
}

TEST_F(BrowserSetupTest, DoesNothingTwice) {
    install(u"chromium"_s);
    ASSERT_EQ(setup().setUp(u"chromium"_s), std::nullopt);
    const auto once = pictureOf(home());
    const auto written = QFileInfo(manifest()).fileTime(QFile::FileMetadataChangeTime);
    ASSERT_EQ(setup().setUp(u"chromium"_s), std::nullopt);
    EXPECT_EQ(pictureOf(home()), once);
    EXPECT_EQ(QFileInfo(manifest()).fileTime(QFile::FileMetadataChangeTime), written);
    EXPECT_EQ(setup().remove(u"chromium"_s), std::nullopt);
    EXPECT_EQ(setup().remove(u"chromium"_s), std::nullopt);
}

TEST_F(BrowserSetupTest, NoticesThatTolvarMovedAndIsRenewed) {
    install(u"chromium"_s);
    ASSERT_EQ(setup().setUp(u"chromium"_s), std::nullopt);
    m_environment.parts.host = path(u"new/tolvar-browser-host"_s);
    EXPECT_EQ(state(u"chromium"_s), State::outOfDate);
    putProgram(m_environment.parts.host);
    EXPECT_EQ(state(u"chromium"_s), State::outOfDate);
    ASSERT_EQ(setup().setUp(u"chromium"_s), std::nullopt);
    EXPECT_EQ(state(u"chromium"_s), State::setUp);
    EXPECT_EQ(json(manifest())[u"path"], m_environment.parts.host);
}

TEST_F(BrowserSetupTest, NoticesThatAPartOrAFileIsMissing) {
    install(u"chromium"_s);
    ASSERT_EQ(setup().setUp(u"chromium"_s), std::nullopt);
    QFile::remove(m_environment.parts.chromiumPackage());
    EXPECT_EQ(state(u"chromium"_s), State::outOfDate);
    putFile(m_environment.parts.chromiumPackage());
    EXPECT_EQ(state(u"chromium"_s), State::setUp);
    QFile::remove(external());
    EXPECT_EQ(state(u"chromium"_s), State::outOfDate);
    ASSERT_EQ(setup().setUp(u"chromium"_s), std::nullopt);
    EXPECT_EQ(state(u"chromium"_s), State::setUp);
}

TEST_F(BrowserSetupTest, ReplacesAndRemovesTheEntryOfABuildWithAnotherKey) {
    install(u"chromium"_s);
    const auto before = pictureOf(home());
    const QString stray =
        home(u".config/chromium/External Extensions/%1.json"_s.arg(QString(32, u'a')));
    ASSERT_EQ(setup().setUp(u"chromium"_s), std::nullopt);
    putFile(stray, R"({"external_crx": "/old/share/tolvar/browser/tolvar.crx"})");
    EXPECT_EQ(state(u"chromium"_s), State::outOfDate);
    ASSERT_EQ(setup().setUp(u"chromium"_s), std::nullopt);
    EXPECT_FALSE(QFile::exists(stray));
    EXPECT_EQ(state(u"chromium"_s), State::setUp);
    putFile(stray, R"({"external_crx": "/old/share/tolvar/browser/tolvar.crx"})");
    ASSERT_EQ(setup().remove(u"chromium"_s), std::nullopt);
    EXPECT_EQ(pictureOf(home()), before);
}

TEST_F(BrowserSetupTest, TakesWhateverStandsInItsPlaceAsOutOfDate) {
    install(u"firefox"_s);
    const QString place = home(u".mozilla/native-messaging-hosts/"_s + manifestName);
    for (const QByteArray& contents : {QByteArray(), QByteArray("{"), QByteArray(1 << 20, 'x')}) {
        putFile(place, contents);
        EXPECT_EQ(state(u"firefox"_s), State::outOfDate);
        ASSERT_EQ(setup().setUp(u"firefox"_s), std::nullopt);
        EXPECT_EQ(state(u"firefox"_s), State::setUp);
    }
    QFile::remove(place);
    ASSERT_TRUE(QFile::link(path(u"nowhere"_s), place));
    EXPECT_EQ(state(u"firefox"_s), State::outOfDate);
}

TEST_F(BrowserSetupTest, RefusesWhatIsNotInstalledOrUnknown) {
    EXPECT_EQ(setup().setUp(u"opera"_s), u"it is not installed"_s);
    EXPECT_EQ(setup().setUp(u"lynx"_s), u"Tolvar does not know it"_s);
    EXPECT_EQ(setup().remove(u"lynx"_s), std::nullopt);
    EXPECT_TRUE(setup().found().empty());
    EXPECT_EQ(pictureOf(home()).size(), 0u);
}

TEST_F(BrowserSetupTest, SaysWhyASandboxedBrowserCannotBeReached) {
    putFile(path(u"exports/share/applications/org.mozilla.firefox.desktop"_s));
    putProgram(path(u"snap/bin/chromium"_s));
    const auto found = setup().found();
    ASSERT_EQ(found.size(), 2u);
    EXPECT_THAT(found[0].obstacle.value_or(QString()).toStdString(), HasSubstr("a Snap"));
    EXPECT_THAT(found[1].obstacle.value_or(QString()).toStdString(), HasSubstr("a Flatpak"));
    EXPECT_EQ(setup().setUp(u"firefox"_s), found[1].obstacle);
    EXPECT_EQ(pictureOf(home()).size(), 0u);
}

TEST_F(BrowserSetupTest, CleansUpAfterABrowserThatIsGone) {
    install(u"vivaldi"_s);
    const auto before = pictureOf(home());
    ASSERT_EQ(setup().setUp(u"vivaldi"_s), std::nullopt);
    QFile::remove(path(u"bin/vivaldi"_s));
    EXPECT_EQ(state(u"vivaldi"_s), State::setUp);
    EXPECT_EQ(setup().found().front().obstacle, u"it is not installed"_s);
    ASSERT_EQ(setup().remove(u"vivaldi"_s), std::nullopt);
    EXPECT_TRUE(setup().found().empty());
    EXPECT_EQ(pictureOf(home()), before);
}

TEST_F(BrowserSetupTest, PointsNoBrowserToPartsThatAreNotThere) {
    install(u"chromium"_s);
    QFile::remove(m_environment.parts.host);
    EXPECT_EQ(setup().setUp(u"chromium"_s),
              u"there is no file “%1”; install Tolvar anew"_s.arg(m_environment.parts.host));
    EXPECT_EQ(pictureOf(home()).size(), 0u);
}

TEST_F(BrowserSetupTest, LeavesNothingHalfDoneWhenItFails) {
    install(u"chromium"_s);
    putFile(home(u".config/chromium/External Extensions"_s), "a file, no folder");
    const auto before = pictureOf(home());
    EXPECT_EQ(setup().setUp(u"chromium"_s),
              u"the file “%1” could not be written: Not a directory"_s.arg(external()));
    EXPECT_EQ(pictureOf(home()), before);
}

TEST_F(BrowserSetupTest, SaysThatItMayNotWriteOrRemove) {
    install(u"chromium"_s);
    install(u"firefox"_s);
    ASSERT_EQ(setup().setUp(u"chromium"_s), std::nullopt);
    test::withOwnMounts([&] {
        test::bindToItself(home());
        test::remount(home(), test::Mode::readOnly);
        EXPECT_EQ(state(u"chromium"_s), State::setUp);
        EXPECT_THAT(setup().setUp(u"firefox"_s).value_or(QString()).toStdString(),
                    HasSubstr("could not be written: Read-only file system"));
        EXPECT_THAT(setup().remove(u"chromium"_s).value_or(QString()).toStdString(),
                    HasSubstr("could not be removed: Read-only file system"));
    });
}

TEST_F(BrowserSetupTest, FindsABrowserByAnyOfTheNamesThatPeopleGiveIt) {
    for (const auto& name :
         {u"chrome"_s, u"Google Chrome"_s, u"google-chrome-stable"_s, u"CHROME"_s})
        EXPECT_EQ(setup().find(name).value_or(BrowserCompanion()).id, u"chrome"_s);
    EXPECT_EQ(setup().find(u"lynx"_s), std::nullopt);
    EXPECT_EQ(setup().find(u""_s), std::nullopt);
}

TEST_F(BrowserSetupTest, AsksForTheFirefoxExtensionUntilItIsThere) {
    install(u"firefox"_s);
    const std::string left = setup().found().front().remainder.toStdString();
    EXPECT_THAT(left, HasSubstr(m_environment.parts.firefoxPackage().toStdString()));
    EXPECT_THAT(left, HasSubstr(path(u"add-ons/browser@tolvar.app.xpi"_s).toStdString()));
    EXPECT_THAT(left, HasSubstr("Mozilla did not sign")) << "where it cannot work is told";
    putFile(path(u"more add-ons/browser@tolvar.app.xpi"_s), "of another version");
    EXPECT_EQ(setup().found().front().remainder.toStdString(), left);
    putFile(path(u"more add-ons/browser@tolvar.app.xpi"_s), "of this version");
    EXPECT_EQ(setup().found().front().remainder, QString());
}

TEST_F(BrowserSetupTest, OwnsUpToWhatItHasNotTried) {
    install(u"chromium"_s);
    install(u"opera"_s);
    const auto found = setup().found();
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].remainder, QString());
    EXPECT_THAT(found[1].remainder.toStdString(), HasSubstr("untried"));
    EXPECT_THAT(found[1].remainder.toStdString(),
                HasSubstr(m_environment.parts.unpackedExtension().toStdString()));
}

TEST_F(BrowserSetupTest, SaysWhatIsLeftToDoOnceTheExtensionWasRemovedInsideTheBrowser) {
    install(u"chromium"_s);
    const QByteArray uninstalls = R"({"extensions": {"external_uninstalls": ["%"]}})";
    const auto remainder = [&] { return setup().found().front().remainder.toStdString(); };
    putFile(home(u".config/chromium/Default/Preferences"_s), "no JSON");
    putFile(home(u".config/chromium/Profile 1/Preferences"_s), uninstalls);
    EXPECT_EQ(remainder(), "") << "another extension was";
    putFile(home(u".config/chromium/Profile 2/Preferences"_s),
            QByteArray(uninstalls).replace('%', chromiumExtensionId));
    EXPECT_THAT(remainder(), HasSubstr("was removed inside"));
    EXPECT_THAT(remainder(), HasSubstr(m_environment.parts.unpackedExtension().toStdString()));
}

TEST_F(BrowserSetupTest, TakesNoFolderInItsPlaceForItsOwn) {
    install(u"firefox"_s);
    QDir().mkpath(home(u".mozilla/native-messaging-hosts/"_s + manifestName));
    EXPECT_EQ(state(u"firefox"_s), State::notSetUp);
    EXPECT_NE(setup().setUp(u"firefox"_s), std::nullopt);
    QFile::remove(path(u"bin/firefox"_s));
    EXPECT_TRUE(setup().found().empty());
}

TEST_F(BrowserSetupTest, OfThisUserIgnoresARelativeFolderOfConfiguration) {
    install(u"chromium"_s);
    test::ChildProcess child([&] {
        qputenv("HOME", QFile::encodeName(path(u"home"_s)));
        qputenv("PATH", QFile::encodeName(path(u"bin"_s)));
        qputenv("XDG_CONFIG_HOME", "relative");
        QDir::setCurrent(m_root.path());
        EXPECT_EQ(BrowserSetup::ofThisUser(m_environment.parts).setUp(u"chromium"_s), std::nullopt);
    });
    EXPECT_TRUE(child.succeeds());
    EXPECT_FALSE(QFile::exists(path(u"relative"_s)));
    EXPECT_TRUE(QFile::exists(manifest()));
}

TEST_F(BrowserSetupTest, OfThisUserWritesWhereTheUsersBrowsersLook) {
    install(u"chromium"_s);
    test::ChildProcess child([&] {
        qputenv("HOME", QFile::encodeName(path(u"home"_s)));
        qputenv("PATH", QFile::encodeName(path(u"bin"_s)));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(path(u"xdg"_s)));
        EXPECT_EQ(BrowserSetup::ofThisUser(m_environment.parts).setUp(u"chromium"_s), std::nullopt);
        qunsetenv("XDG_CONFIG_HOME");
        EXPECT_EQ(BrowserSetup::ofThisUser(m_environment.parts).setUp(u"chromium"_s), std::nullopt);
    });
    EXPECT_TRUE(child.succeeds());
    EXPECT_TRUE(QFile::exists(path(u"xdg/chromium/NativeMessagingHosts/"_s + manifestName)));
    EXPECT_TRUE(QFile::exists(manifest()));
}

} // namespace
} // namespace tolvar
