#include "Views/Shared/InstrumentStyle.h"
#include "Views/Theme/Bevel.h"

#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleHintReturnMask>
#include <QStyleOption>

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class StyleTest : public testing::Test {
protected:
    StyleTest() { QApplication::setStyle(new InstrumentStyle); }
    ~StyleTest() override { QApplication::setStyle(QStyleFactory::create(u"Fusion"_s)); }

    static QImage picture(QWidget& widget) {
        return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    }
};

TEST_F(StyleTest, MakesTooltipsCardsWithRoundCorners) {
    QImage image(80, 26, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QStyleOptionFrame option;
    option.rect = image.rect();
    QApplication::style()->drawPrimitive(QStyle::PE_PanelTipLabel, &option, &painter);
    EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << "what is behind the corner is seen";
    EXPECT_EQ(image.pixelColor(40, 0), Bevel::cardKey.top);
}

TEST_F(StyleTest, ShowsWhichItemOfAMenuIsChosen) {
    QMenu menu;
    menu.addAction(u"Focus again"_s);
    QAction* last = menu.addAction(u"Delete"_s);
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    const QImage before = picture(menu);
    EXPECT_EQ(qAlpha(before.pixel(0, 0)), 0);
    menu.setActiveAction(last);
    const QImage after = picture(menu);
    const QRect chosen = menu.actionGeometry(last);
    EXPECT_NE(after.copy(chosen), before.copy(chosen));
    EXPECT_EQ(after.pixelColor(chosen.center().x(), chosen.top()), Bevel::modeIndicator.top);
}

TEST_F(StyleTest, GivesEachItemRoomForItsText) {
    QMenu menu;
    QAction* action =
        menu.addAction(u"A category with an unusually long name that somebody gave it"_s);
    QAction* separator = menu.addSeparator();
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    EXPECT_GT(menu.actionGeometry(action).width(), 300);
    EXPECT_LT(menu.actionGeometry(separator).height(), menu.actionGeometry(action).height());
}

TEST(InstrumentStyle, CutsTheCornersWhereNothingIsSeenThroughWindows) {
    QStyleOption option;
    option.rect = {0, 0, 100, 50};
    for (const auto hint : {QStyle::SH_Menu_Mask, QStyle::SH_ToolTip_Mask}) {
        QStyleHintReturnMask mask;
        EXPECT_FALSE(InstrumentStyle().styleHint(hint, &option, nullptr, &mask));
        const InstrumentStyle opaque([] { return false; });
        ASSERT_TRUE(opaque.styleHint(hint, &option, nullptr, &mask));
        EXPECT_FALSE(mask.region.contains(QPoint(0, 0)));
        EXPECT_FALSE(mask.region.contains(QPoint(99, 49)));
        EXPECT_TRUE(mask.region.contains(QPoint(50, 0)));
        EXPECT_TRUE(mask.region.contains(QPoint(50, 49)));
    }
}

} // namespace
} // namespace tolvar::test
