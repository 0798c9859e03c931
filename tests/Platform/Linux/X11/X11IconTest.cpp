#include "Platform/Interfaces/IconThemeSettings.h"
#include "Platform/Linux/X11/WorkspaceFixture.h"
#include "Platform/Linux/X11/X11IconThemeSettings.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class X11IconTest : public WorkspaceFixture {
protected:
    /// Opens a window that brings an icon; window managers give theirs to one that has none.
    void openWithIcon(ClientProcess& client, const std::vector<std::uint32_t>& words) {
        const xcb_window_t window = client.createWindow();
        // One request cannot carry a large icon: the property grows piece by piece.
        constexpr std::size_t piece = 32768;
        for (std::size_t at = 0; at < words.size(); at += piece)
            xcb_change_property(desktop.connection().get(), XCB_PROP_MODE_APPEND, window,
                                desktop.connection().ewmh()._NET_WM_ICON, XCB_ATOM_CARDINAL, 32,
                                static_cast<std::uint32_t>(std::min(piece, words.size() - at)),
                                words.data() + at);
        desktop.present(window, chat);
        handleOf(u"Chatter"_s);
    }
};

TEST_F(X11IconTest, IsWhatItsWindowBringsInAllSizes) {
    ClientProcess client;
    openWithIcon(client, {2, 1, 0xFF112233, 0x80445566, 1, 1, 0xFF000000});
    EXPECT_THAT(
        workspace->icon(handleOf(u"Chatter"_s)),
        ElementsAre(ArgbPicture{2, 1, {0xFF112233, 0x80445566}}, ArgbPicture{1, 1, {0xFF000000}}));
}

TEST_F(X11IconTest, MayBeLarge) {
    ClientProcess client;
    std::vector<std::uint32_t> words{256, 256};
    words.resize(2 + 256 * 256, 0xFFAA5500);
    openWithIcon(client, words);
    const auto icons = workspace->icon(handleOf(u"Chatter"_s));
    ASSERT_EQ(icons.size(), 1u);
    EXPECT_EQ(icons.front().width, 256);
    EXPECT_EQ(icons.front().pixels.back(), 0xFFAA5500);
}

TEST_F(X11IconTest, IsNoneOnceTheApplicationIsGone) {
    ApplicationHandle handle;
    {
        ClientProcess client;
        openWithIcon(client, {1, 1, 0xFF112233});
        handle = handleOf(u"Chatter"_s);
    }
    EXPECT_TRUE(TestDesktop::waitUntil([&] { return workspace->icon(handle).empty(); }));
}

class FileSettings final : public IconThemeSettings {
public:
    QString themeName() const override { return u"FromFiles"_s; }
    QStringList themeFolders() const override { return {u"/icons"_s}; }
};

class X11IconThemeTest : public testing::Test {
protected:
    std::unique_ptr<X11IconThemeSettings> make() {
        std::unique_ptr<IconThemeSettings> files = std::make_unique<FileSettings>();
        return X11IconThemeSettings::create(files);
    }
    /// Becomes the settings manager of the desktop.
    void manage(const QByteArray& settings) {
        XConnection& connection = *manager;
        const xcb_window_t window = connection.createProbe();
        xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window,
                            connection.atom(XAtom::xSettingsSettings),
                            connection.atom(XAtom::xSettingsSettings), 8,
                            static_cast<std::uint32_t>(settings.size()), settings.constData());
        xcb_set_selection_owner(connection.get(), window,
                                connection.atom(XAtom::xSettingsSelection), XCB_CURRENT_TIME);
        connection.sync();
    }

    std::unique_ptr<XConnection> manager = XConnection::open();
};

TEST_F(X11IconThemeTest, IsWhatTheSettingsManagerSays) {
    const auto settings = make();
    EXPECT_EQ(settings->themeName(), u"FromFiles");
    manage(QByteArray("\0\0\0\0"
                      "\1\0\0\0"
                      "\1\0\0\0"
                      "\1\0\21\0Net/IconThemeName\0\0\0"
                      "\1\0\0\0"
                      "\4\0\0\0Mine",
                      48));
    EXPECT_EQ(settings->themeName(), u"Mine");
    manager.reset();
    EXPECT_TRUE(TestDesktop::waitUntil([&] { return settings->themeName() == u"FromFiles"; }));
}

TEST_F(X11IconThemeTest, IsThatOfTheFilesWhereTheManagerSaysNothing) {
    manage(QByteArray("\0\0\0\0"
                      "\1\0\0\0"
                      "\0\0\0\0",
                      12));
    EXPECT_EQ(make()->themeName(), u"FromFiles");
    EXPECT_EQ(make()->themeFolders(), QStringList(u"/icons"_s));
}

} // namespace
} // namespace tolvar::test
