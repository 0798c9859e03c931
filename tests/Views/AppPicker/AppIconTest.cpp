#include "Platform/Null/NullIconThemeSettings.h"
#include "Platform/Null/NullWorkspace.h"
#include "Support/FakeInstalledApplications.h"
#include "Support/ToleratedWarning.h"
#include "Views/AppPicker/AppIconStack.h"
#include "Views/AppPicker/AppIconView.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Shared/ControlTest.h"
#include "Views/Theme/Ink.h"

#include <QHelpEvent>
#include <QToolTip>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

constexpr double size = 20;

QIcon plainIcon(const QColor& color) {
    QPixmap pixmap(64, 64);
    pixmap.fill(color);
    return QIcon(pixmap);
}

TEST(AppIcon, FillsItsBoxCrisplyAtEveryScale) {
    for (const qreal scale : {1.0, 1.5, 2.0}) {
        const QImage picture = painted({30, 30}, scale, [](QPainter& painter) {
            paintAppIcon(painter, {4, 4, size, size}, plainIcon(Qt::red));
        });
        EXPECT_EQ(inkIn(picture), size * size * scale * scale) << scale;
        EXPECT_EQ(crispness(picture), 1) << scale;
    }
}

TEST(AppIcon, FillsItsBoxAlsoWithASmallPicture) {
    QPixmap small(8, 8);
    small.fill(Qt::red);
    const QImage picture = painted({30, 30}, 1, [&](QPainter& painter) {
        paintAppIcon(painter, {4, 4, size, size}, QIcon(small));
    });
    EXPECT_NEAR(inkIn(picture), size * size, 1);
}

TEST(AppIcon, HasAPlateWhereThereIsNone) {
    const QImage picture = painted({20, 20}, 2, [](QPainter& painter) {
        paintAppIcon(painter, {0, 0, size, size}, {});
    });
    EXPECT_GT(inkIn(picture), 0.7 * 40 * 40);
    EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0);
}

TEST(AppIconRow, OverlapsByItsShare) {
    EXPECT_EQ(AppIconRow::size(0, size), QSizeF(0, 0));
    EXPECT_EQ(AppIconRow::size(1, size), QSizeF(20, 20));
    EXPECT_DOUBLE_EQ(AppIconRow::size(3, size).width(), 20 + 2 * (20 - 0.27 * 20));
    EXPECT_DOUBLE_EQ(AppIconRow::place(1, 3, size, {5, 7}, Qt::LeftToRight).left(), 5 + 14.6);
    EXPECT_DOUBLE_EQ(AppIconRow::place(2, 3, size, {5, 7}, Qt::RightToLeft).left(), 5);
    EXPECT_DOUBLE_EQ(AppIconRow::place(0, 3, size, {5, 7}, Qt::RightToLeft).left(), 5 + 29.2);
}

TEST(AppIconRow, LaysTheFirstOnTopAndAShadowOnTheNext) {
    const std::vector<QIcon> icons{plainIcon(Qt::red), plainIcon(Qt::white)};
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        const QImage picture = painted({60, 30}, 2, [&](QPainter& painter) {
            AppIconRow::paint(painter, {5, 5}, icons, size, direction);
        });
        const auto at = [&](double x) {
            const double left = direction == Qt::LeftToRight ? x : 5 + 5 + 34.6 - x;
            return QColor(picture.pixel(static_cast<int>(left * 2), 30));
        };
        EXPECT_EQ(at(24.2), QColor(Qt::red));
        EXPECT_LT(at(25.8).green(), 200);
        EXPECT_LT(at(25.8).green(), at(27).green());
        EXPECT_EQ(at(32), QColor(Qt::white));
    }
}

class AppIconStackTest : public ControlTest {
protected:
    AppIconStackTest() {
        for (const QString& name : {u"Chat"_s, u"Mail"_s, u"Music"_s})
            installed.install(name);
    }

    FakeInstalledApplications installed;
    NullWorkspace workspace;
    NullIconThemeSettings theme;
    ApplicationIcons icons{{installed, workspace, theme}};
};

TEST_F(AppIconStackTest, IsAsWideAsItsIconsAndTheirShadow) {
    AppIconStack stack(icons, size);
    EXPECT_EQ(stack.sizeHint(), QSize(6, 6));
    stack.setAppNames({u"Chat"_s, u"Mail"_s});
    EXPECT_EQ(stack.sizeHint(), QSize(35 + 6, 20 + 6));
}

TEST_F(AppIconStackTest, KnowsWhichIconIsOnTop) {
    auto* stack = new AppIconStack(icons, size);
    stack->setAppNames({u"Chat"_s, u"Mail"_s, u"Music"_s});
    shown(stack);
    EXPECT_EQ(stack->appAt({4, 10}), u"Chat");
    EXPECT_EQ(stack->appAt({22, 10}), u"Chat");
    EXPECT_EQ(stack->appAt({24, 10}), u"Mail");
    EXPECT_EQ(stack->appAt({51, 10}), u"Music");
    EXPECT_EQ(stack->appAt({1, 10}), QString());
    stack->setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(stack->appAt({stack->width() - 4.0, 10}), u"Chat");
    EXPECT_EQ(stack->appAt({4, 10}), u"Music");
}

TEST_F(AppIconStackTest, TellsTheNameOfTheIconUnderThePointer) {
    const ToleratedWarning noRaising(u"support raise"_s);
    auto* stack = new AppIconStack(icons, size);
    stack->setAppNames({u"Chat"_s, u"<b>Mail</b>"_s});
    shown(stack);
    QHelpEvent help(QEvent::ToolTip, {30, 10}, stack->mapToGlobal(QPoint(30, 10)));
    QApplication::sendEvent(stack, &help);
    EXPECT_EQ(QToolTip::text(), u"&lt;b&gt;Mail&lt;/b&gt;");
    QToolTip::hideText();
}

TEST_F(AppIconStackTest, IsAPictureCalledByAllNames) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::English));
    AppIconStack stack(icons, size);
    stack.setAppNames({u"Chat"_s, u"Mail"_s});
    QLocale::setDefault(before);
    EXPECT_EQ(accessible(stack)->role(), QAccessible::Graphic);
    EXPECT_EQ(accessible(stack)->text(QAccessible::Name), u"Chat and Mail");
}

TEST_F(AppIconStackTest, LooksUpNoIconBeforeItIsSeen) {
    const AppIconView single(icons, u"Chat"_s, size);
    AppIconStack stack(icons, size);
    stack.setAppNames({u"Chat"_s});
    EXPECT_EQ(installed.looks, 0);
    stack.grab();
    EXPECT_EQ(installed.looks, 1);
}

TEST_F(AppIconStackTest, HasSingleIconsThatAreCalledByTheirName) {
    AppIconView view(icons, u"Chat"_s, size);
    EXPECT_EQ(view.sizeHint(), QSize(20, 20));
    EXPECT_EQ(accessible(view)->role(), QAccessible::Graphic);
    EXPECT_EQ(accessible(view)->text(QAccessible::Name), u"Chat");
}

} // namespace
} // namespace tolvar::test
