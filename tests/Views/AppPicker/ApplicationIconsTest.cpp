#include "Views/AppPicker/ApplicationIcons.h"

#include "Platform/Interfaces/IconThemeSettings.h"
#include "Support/FakeInstalledApplications.h"
#include "Support/FakeWorkspace.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class FakeTheme final : public IconThemeSettings {
public:
    QString name;
    QStringList folders;

    QString themeName() const override { return name; }
    QStringList themeFolders() const override { return folders; }
};

class ApplicationIconsTest : public testing::Test {
protected:
    ApplicationIconsTest() {
        folder.setAutoRemove(true);
        theme.folders = QStringList(folder.path());
    }
    ~ApplicationIconsTest() override {
        QIcon::setThemeName(themeBefore);
        QIcon::setFallbackThemeName(fallbackBefore);
        QIcon::setThemeSearchPaths(pathsBefore);
    }

    static QString sample(const QString& name) {
        return u"%1/%2.svg"_s.arg(QStringLiteral(ICONS), name);
    }
    void install(const QString& name, const QString& icon) {
        installed.applications.push_back({name.toLower(), name, icon});
    }
    /// A theme with one icon of one colour.
    void writeTheme(const QString& name, const QString& icon, const QColor& color) {
        const QString icons = folder.filePath(name + u"/32x32/apps"_s);
        QDir().mkpath(icons);
        QFile index(folder.filePath(name + u"/index.theme"_s));
        ASSERT_TRUE(index.open(QIODevice::WriteOnly));
        index.write("[Icon Theme]\nName=Test\nDirectories=32x32/apps\n\n[32x32/apps]\nSize=32\n");
        QImage picture(32, 32, QImage::Format_ARGB32);
        picture.fill(color);
        ASSERT_TRUE(picture.save(icons + u'/' + icon + u".png"_s));
    }
    static QColor colorOf(const QIcon& icon) {
        const QImage picture = icon.pixmap(QSize(24, 24), 1).toImage();
        return picture.isNull() ? QColor() : picture.pixelColor(picture.rect().center());
    }
    ApplicationIcons make() { return ApplicationIcons({installed, workspace, theme}); }

    const QString themeBefore = QIcon::themeName();
    const QString fallbackBefore = QIcon::fallbackThemeName();
    const QStringList pathsBefore = QIcon::themeSearchPaths();
    QTemporaryDir folder;
    Journal journal;
    FakeInstalledApplications installed;
    FakeWorkspace workspace{journal};
    FakeTheme theme;
};

const std::vector<ArgbPicture> redIcon{{2, 1, {0xFFFF0000, 0xFFFF0000}}};

TEST_F(ApplicationIconsTest, FindsAnIconByItsPath) {
    install(u"Chat"_s, sample(u"chat"_s));
    auto icons = make();
    EXPECT_EQ(icons.find(u"Chat"_s).pixmap(QSize(24, 24), 2).size(), QSize(48, 48));
    EXPECT_TRUE(icons.find(u"Mail"_s).isNull());
}

TEST_F(ApplicationIconsTest, FindsAnIconInTheThemeOfTheDesktop) {
    writeTheme(u"Blue"_s, u"org.example.chat"_s, Qt::blue);
    writeTheme(u"Green"_s, u"org.example.chat"_s, Qt::green);
    theme.name = u"Green"_s;
    install(u"Chat"_s, u"org.example.chat"_s);
    auto icons = make();
    EXPECT_EQ(colorOf(icons.find(u"Chat"_s)), QColor(Qt::green));
    theme.name = u"Blue"_s;
    icons.refresh();
    EXPECT_EQ(colorOf(icons.find(u"Chat"_s)), QColor(Qt::blue));
}

TEST_F(ApplicationIconsTest, FindsExportedIconsWhateverTheTheme) {
    writeTheme(u"hicolor"_s, u"org.example.flat"_s, Qt::yellow);
    theme.name = u"Missing"_s;
    install(u"Flat"_s, u"org.example.flat"_s);
    EXPECT_EQ(colorOf(make().find(u"Flat"_s)), QColor(Qt::yellow));
}

TEST_F(ApplicationIconsTest, FindsAnIconThatIsNamedAsAFile) {
    writeTheme(u"hicolor"_s, u"old"_s, Qt::yellow);
    install(u"Old"_s, u"old.png"_s);
    EXPECT_EQ(colorOf(make().find(u"Old"_s)), QColor(Qt::yellow));
}

TEST_F(ApplicationIconsTest, TakesTheIconOfARunningApplicationWhereNoneIsInstalled) {
    const auto handle = workspace.launch(u"Chat"_s);
    workspace.setIcon(handle, redIcon);
    EXPECT_EQ(colorOf(make().find(u"Chat"_s)), QColor(Qt::red));
}

TEST_F(ApplicationIconsTest, TakesTheIconOfARunningApplicationWhereTheInstalledOneHasNone) {
    install(u"Chat"_s, u"/nowhere/chat.png"_s);
    workspace.setIcon(workspace.launch(u"Chat"_s), redIcon);
    EXPECT_EQ(colorOf(make().find(u"Chat"_s)), QColor(Qt::red));
}

TEST_F(ApplicationIconsTest, PrefersTheInstalledOne) {
    writeTheme(u"hicolor"_s, u"chat"_s, Qt::green);
    install(u"Chat"_s, u"chat"_s);
    workspace.setIcon(workspace.launch(u"Chat"_s), redIcon);
    EXPECT_EQ(colorOf(make().find(u"Chat"_s)), QColor(Qt::green));
}

TEST_F(ApplicationIconsTest, GoesOnToTheNextOfANameThatHasAnIcon) {
    install(u"Chat"_s, {});
    install(u"Chat"_s, sample(u"chat"_s));
    EXPECT_FALSE(make().find(u"Chat"_s).isNull());
}

TEST_F(ApplicationIconsTest, HasNoneForAFileThatIsNoPicture) {
    QFile file(folder.filePath(u"broken.png"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    install(u"Chat"_s, file.fileName());
    EXPECT_TRUE(make().find(u"Chat"_s).isNull());
}

TEST_F(ApplicationIconsTest, LooksOnceUntilItIsRefreshed) {
    install(u"Chat"_s, sample(u"chat"_s));
    auto icons = make();
    icons.find(u"Chat"_s);
    icons.find(u"Mail"_s);
    EXPECT_FALSE(icons.appExists(u"Mail"_s));
    EXPECT_EQ(installed.looks, 1);
    install(u"Mail"_s, sample(u"mail"_s));
    EXPECT_TRUE(icons.find(u"Mail"_s).isNull());
    icons.refresh();
    EXPECT_FALSE(icons.find(u"Mail"_s).isNull());
    EXPECT_TRUE(icons.appExists(u"Mail"_s));
}

TEST_F(ApplicationIconsTest, TakesTheListItIsHanded) {
    auto icons = make();
    icons.refresh({{u"chat"_s, u"Chat"_s, sample(u"chat"_s)}});
    EXPECT_TRUE(icons.appExists(u"Chat"_s));
    EXPECT_EQ(installed.looks, 0);
}

TEST_F(ApplicationIconsTest, KnowsInstalledAndRunningApplications) {
    install(u"Chat"_s, {});
    workspace.launch(u"Mail"_s);
    auto icons = make();
    EXPECT_TRUE(icons.appExists(u"Chat"_s));
    EXPECT_TRUE(icons.appExists(u"Mail"_s));
    EXPECT_FALSE(icons.appExists(u"chat"_s));
    EXPECT_FALSE(icons.appExists(QString()));
}

} // namespace
} // namespace tolvar::test
