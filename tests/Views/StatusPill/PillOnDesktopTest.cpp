#include "Views/StatusPill/PillFixture.h"

#include <QContextMenuEvent>
#include <QProcess>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

using PillOnDesktopTest = PillFixture;

TEST_F(PillOnDesktopTest, OpensItsMenu) {
    show(idle());
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, pill().mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&pill(), &event);
    ASSERT_TRUE(popups.menu());
    popups.menu()->actions().front()->trigger();
    EXPECT_EQ(told, QStringList(u"chosen 5"_s));
}

TEST_F(PillOnDesktopTest, IsCutRoundWhereNothingIsBlended) {
    item.reset();
    StatusPill cut(preferences, motion, StatusPill::Ends::cut);
    cut.setContent(countdown());
    cut.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&cut));
    EXPECT_FALSE(cut.mask().contains(QPoint(0, 0)));
    EXPECT_TRUE(cut.mask().contains(cut.rect().center()));
    EXPECT_TRUE(cut.mask().contains(QPoint(cut.width() / 2, 0)));
}

TEST_F(PillOnDesktopTest, IsAboveOtherWindowsAndTakesNoFocusFromThem) {
    QWidget other;
    other.setGeometry(screen());
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    show(countdown());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&pill()));
    const auto inView = [this] {
        return QGuiApplication::primaryScreen()->grabWindow(0).toImage().pixelColor(
            pill().geometry().center());
    };
    const QColor own = pill().grab().toImage().pixelColor(pill().rect().center());
    EXPECT_TRUE(QTest::qWaitFor([&] { return inView() == own; }));
    other.raise();
    EXPECT_FALSE(QTest::qWaitFor([&] { return inView() != own; }, 200));
    EXPECT_TRUE(other.isActiveWindow());
}

/// What window managers keep on every desktop and out of the taskbar.
TEST_F(PillOnDesktopTest, IsADockThatWantsNoKeyboard) {
    show(idle());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&pill()));
    QProcess process;
    process.start(u"xprop"_s, {u"-id"_s, QString::number(pill().winId())});
    ASSERT_TRUE(process.waitForFinished());
    const QString properties = QString::fromUtf8(process.readAll());
    EXPECT_TRUE(properties.contains(u"_NET_WM_WINDOW_TYPE(ATOM) = _NET_WM_WINDOW_TYPE_DOCK"_s));
    EXPECT_TRUE(properties.contains(u"Client accepts input or input focus: False"_s));
}

} // namespace
} // namespace tolvar::test
