#include "Platform/Linux/SystemTray/TrayFixture.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using Presence = StatusItemPlace::Presence;

/// A program that runs while this lives.
class HostProcess {
public:
    HostProcess(const QString& program, const QStringList& arguments) {
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.setStandardOutputFile(QProcess::nullDevice());
        m_process.start(program, arguments);
        if (!m_process.waitForStarted())
            ADD_FAILURE() << program.toStdString() << " is not installed: run scripts/setup";
    }
    ~HostProcess() { kill(); }
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;

    /// It crashes.
    void kill() {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};

/// With trays that people have.
class TrayHostTest : public TrayFixture {
protected:
    QTemporaryDir folder;
    /// tint2 waits for a window manager.
    HostProcess manager{u"openbox"_s, {u"--sm-disable"_s}};

    std::unique_ptr<HostProcess> trayer() {
        return std::make_unique<HostProcess>(
            u"trayer"_s, QStringList{u"--edge"_s, u"top"_s, u"--align"_s, u"right"_s,
                                     u"--widthtype"_s, u"request"_s, u"--height"_s, u"28"_s});
    }
    std::unique_ptr<HostProcess> tint2() {
        QFile file(folder.filePath(u"tint2rc"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("panel_items = S\npanel_size = 100% 32\nsystray_icon_size = 22\n");
        file.close();
        return std::make_unique<HostProcess>(u"tint2"_s, QStringList{u"-c"_s, file.fileName()});
    }
    bool isThere() { return item->anchor() && !painted.empty(); }
};

TEST_F(TrayHostTest, IsWideInTrayer) {
    const auto host = trayer();
    makeItem();
    ASSERT_TRUE(eventually([&] { return isThere(); }));
    item->show(countdown(60));
    EXPECT_TRUE(eventually([&] {
        return painted.back().size.width() >= 59 && !painted.back().content.isLabelHidden;
    }));
    auto content = countdown(24);
    content.isLabelHidden = true;
    item->show(content);
    EXPECT_TRUE(eventually([&] { return painted.back().size.width() <= 30; }));
}

TEST_F(TrayHostTest, IsSquareInTint2) {
    const auto host = tint2();
    makeItem();
    ASSERT_TRUE(eventually([&] { return isThere() && painted.back().size.width() > 10; }));
    painted.clear();
    item->show(countdown(60));
    EXPECT_TRUE(eventually([&] { return !painted.empty(); }));
    const Painting& last = painted.back();
    EXPECT_TRUE(last.content.isLabelHidden);
    EXPECT_EQ(last.size.width(), last.size.height());
}

TEST_F(TrayHostTest, ComesBackWithATrayThatCrashed) {
    for (const auto& start :
         {std::function([this] { return trayer(); }), std::function([this] { return tint2(); })}) {
        auto host = start();
        makeItem();
        item->show(countdown(60));
        ASSERT_TRUE(eventually([&] { return isThere(); }));
        host->kill();
        EXPECT_TRUE(
            eventually([&] { return !item->anchor() && place->presence() == Presence::absent; }));
        painted.clear();
        host = start();
        EXPECT_TRUE(eventually([&] { return isThere(); }));
        EXPECT_EQ(place->presence(), Presence::present);
        item.reset();
    }
}

} // namespace
} // namespace tolvar::test
