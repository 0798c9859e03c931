#include "Platform/Linux/BrowserSetup/InstalledBrowsers.h"

#include "FolderPicture.h"
#include "Platform/Linux/BrowserSetup/KnownBrowsers.h"
#include "Support/ChildProcess.h"
#include "Support/Texts.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using Kind = InstalledBrowsers::Kind;
using test::putFile;
using test::putProgram;

class InstalledBrowsersTest : public testing::Test {
protected:
    QString path(const QString& name) const { return m_root.filePath(name); }
    Kind kindOf(const QString& id) const {
        return InstalledBrowsers({.programs = {path(u"bin"_s), path(u"games"_s)},
                                  .entries = {path(u"share"_s)},
                                  .flatpaks = {path(u"exports"_s)},
                                  .snaps = {path(u"snap/bin"_s)}})
            .kindOf(*knownBrowser(id));
    }
    void putEntry(const QString& name, const QString& exec) {
        putFile(path(u"share/applications/"_s + name),
                u"[Desktop Entry]\nType=Application\nName=X\nExec=%1\n"_s.arg(exec).toUtf8());
    }

    QTemporaryDir m_root;
};

TEST_F(InstalledBrowsersTest, FindsNoneWhereNothingIs) {
    for (const KnownBrowser& browser : knownBrowsers())
        EXPECT_EQ(kindOf(browser.id), Kind::absent) << browser.id.toStdString();
}

TEST_F(InstalledBrowsersTest, FindsEachByAnyOfItsPrograms) {
    for (const KnownBrowser& browser : knownBrowsers())
        for (const QString& program : browser.programs) {
            putProgram(path(u"games/"_s + program));
            for (const KnownBrowser& other : knownBrowsers())
                EXPECT_EQ(kindOf(other.id), other.id == browser.id ? Kind::ordinary : Kind::absent)
                    << program.toStdString() << " for " << other.id.toStdString();
            QFile::remove(path(u"games/"_s + program));
        }
}

TEST_F(InstalledBrowsersTest, TakesNoFileForAProgramThatCannotBeStarted) {
    putFile(path(u"bin/chromium"_s), "#!/bin/sh\n");
    QDir().mkpath(path(u"bin/opera"_s));
    EXPECT_EQ(kindOf(u"chromium"_s), Kind::absent);
    EXPECT_EQ(kindOf(u"opera"_s), Kind::absent);
}

TEST_F(InstalledBrowsersTest, FindsOneOutsideOfThePathByItsDesktopEntry) {
    putProgram(path(u"opt/fire fox/firefox"_s));
    putEntry(u"firefox.desktop"_s, u"\"%1\" %u"_s.arg(path(u"opt/fire fox/firefox"_s)));
    EXPECT_EQ(kindOf(u"firefox"_s), Kind::ordinary);
    QFile::remove(path(u"opt/fire fox/firefox"_s));
    EXPECT_EQ(kindOf(u"firefox"_s), Kind::absent);
}

TEST_F(InstalledBrowsersTest, IsNotMisledByEntriesThatStartAWrapper) {
    putProgram(path(u"usr/bin/flatpak"_s));
    putEntry(u"chromium.desktop"_s, path(u"usr/bin/flatpak run org.chromium.Chromium"_s));
    EXPECT_EQ(kindOf(u"chromium"_s), Kind::absent);
}

TEST_F(InstalledBrowsersTest, TellsAFlatpakByWhatItExports) {
    putFile(path(u"exports/share/applications/org.mozilla.firefox.desktop"_s));
    EXPECT_EQ(kindOf(u"firefox"_s), Kind::flatpak);
    putProgram(path(u"exports/bin/com.brave.Browser"_s));
    EXPECT_EQ(kindOf(u"brave"_s), Kind::flatpak);
    putProgram(path(u"bin/firefox"_s));
    EXPECT_EQ(kindOf(u"firefox"_s), Kind::ordinary);
}

TEST_F(InstalledBrowsersTest, TellsASnapByItsProgramAlsoWhereThatIsInThePath) {
    putProgram(path(u"usr/bin/snap"_s), "ELF");
    QDir().mkpath(path(u"snap/bin"_s));
    ASSERT_TRUE(QFile::link(path(u"usr/bin/snap"_s), path(u"snap/bin/chromium"_s)));
    EXPECT_EQ(kindOf(u"chromium"_s), Kind::snap);
    QDir().mkpath(path(u"bin"_s));
    ASSERT_TRUE(QFile::link(path(u"snap/bin/chromium"_s), path(u"bin/chromium"_s)));
    EXPECT_EQ(kindOf(u"chromium"_s), Kind::snap);
}

TEST_F(InstalledBrowsersTest, TellsASnapBehindAScriptThatOnlyStartsIt) {
    putProgram(path(u"snap/bin/firefox"_s));
    putProgram(path(u"bin/firefox"_s),
               "#!/bin/sh\nexec " + path(u"snap/bin/firefox"_s).toUtf8() + " \"$@\"\n");
    EXPECT_EQ(kindOf(u"firefox"_s), Kind::snap);
}

TEST_F(InstalledBrowsersTest, LooksWhereThisUserHasPrograms) {
    test::ChildProcess child([&] {
        qputenv("PATH", "/one:/two");
        qputenv("XDG_DATA_HOME", "/data");
        qputenv("XDG_DATA_DIRS",
                "/usr/share:/var/lib/flatpak/exports/share:/var/lib/snapd/desktop");
        const auto places = InstalledBrowsers::placesOfThisUser();
        EXPECT_EQ(places.programs, (QStringList{u"/one"_s, u"/two"_s}));
        EXPECT_EQ(places.entries, (QStringList{u"/data"_s, u"/usr/share"_s}));
        EXPECT_EQ(places.flatpaks,
                  (QStringList{u"/data/flatpak/exports"_s, u"/var/lib/flatpak/exports"_s}));
    });
    EXPECT_TRUE(child.succeeds());
}

} // namespace
} // namespace tolvar
