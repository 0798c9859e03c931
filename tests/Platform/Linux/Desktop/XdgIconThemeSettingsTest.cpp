#include "Platform/Linux/Desktop/XdgIconThemeSettings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class XdgIconThemeSettingsTest : public testing::Test {
protected:
    void write(const QString& path, const QByteArray& content) {
        const QString file = folder.filePath(path);
        QDir().mkpath(QFileInfo(file).path());
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content);
    }
    XdgIconThemeSettings settings() const {
        return {{folder.filePath(u"own"_s), folder.filePath(u"system"_s)},
                {u"/data/own"_s, u"/data/system"_s},
                u"/home/ada"_s};
    }

    QTemporaryDir folder;
};

TEST_F(XdgIconThemeSettingsTest, KnowNoThemeWhereNothingIsWritten) {
    EXPECT_EQ(settings().themeName(), QString());
}

TEST_F(XdgIconThemeSettingsTest, ReadWhatGtkReads) {
    write(u"own/gtk-3.0/settings.ini"_s,
          "# gtk-icon-theme-name=No\n[Other]\ngtk-icon-theme-name=No\n"
          "[Settings]\ngtk-theme-name=Dark\n gtk-icon-theme-name = Papirus \n");
    EXPECT_EQ(settings().themeName(), u"Papirus");
}

TEST_F(XdgIconThemeSettingsTest, PreferTheUsersOwnToTheSystems) {
    write(u"system/gtk-4.0/settings.ini"_s, "[Settings]\ngtk-icon-theme-name=Theirs\n");
    EXPECT_EQ(settings().themeName(), u"Theirs");
    write(u"own/kdeglobals"_s, "[General]\nTheme=No\n\n[Icons]\nTheme=Mine\n");
    EXPECT_EQ(settings().themeName(), u"Mine");
}

TEST_F(XdgIconThemeSettingsTest, PreferTheNewerGtk) {
    write(u"own/gtk-3.0/settings.ini"_s, "[Settings]\ngtk-icon-theme-name=Three\n");
    write(u"own/gtk-4.0/settings.ini"_s, "[Settings]\ngtk-icon-theme-name=Four\n");
    EXPECT_EQ(settings().themeName(), u"Four");
}

TEST_F(XdgIconThemeSettingsTest, GoOnWhereAValueIsEmpty) {
    write(u"own/gtk-4.0/settings.ini"_s, "[Settings]\ngtk-icon-theme-name=\n");
    write(u"own/gtk-3.0/settings.ini"_s, "[Settings]\ngtk-icon-theme-name=Three\n");
    EXPECT_EQ(settings().themeName(), u"Three");
}

TEST_F(XdgIconThemeSettingsTest, NameTheUsersOwnFolderOfIconsFirst) {
    EXPECT_EQ(settings().themeFolders(),
              QStringList({u"/home/ada/.icons"_s, u"/data/own/icons"_s, u"/data/system/icons"_s}));
}

TEST(XdgIconThemeSettings, LookWhereFlatpakAndSnapExport) {
    const auto folders = XdgIconThemeSettings::ofThisDesktop().themeFolders();
    EXPECT_TRUE(folders.contains(u"/var/lib/flatpak/exports/share/icons"_s));
    EXPECT_TRUE(folders.contains(u"/var/lib/snapd/desktop/icons"_s));
}

} // namespace
} // namespace tolvar::test
