#include "Views/BlockAlert/BlockAlertView.h"

#include "Views/BlockAlert/WrappedText.h"
#include "Views/Shared/ControlTest.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Theme/Instrument.h"

#include <QSignalSpy>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

TEST(BlockAlertTexts, NameTheApplication) {
    EXPECT_EQ(
        BlockAlertView::texts(u"Chat"_s, BlockTarget::app),
        (BlockAlertView::Texts{u"You're tolvar, Chat is blocked"_s,
                               u"This app will remain blocked until your focus session ends."_s}));
}

TEST(BlockAlertTexts, NameTheSite) {
    EXPECT_EQ(
        BlockAlertView::texts(u"news.example.org"_s, BlockTarget::site),
        (BlockAlertView::Texts{u"You're tolvar, news.example.org is blocked"_s,
                               u"This site will remain blocked until your focus session ends."_s}));
}

TEST(BlockAlertTexts, TakePercentSignsAsTheyAre) {
    EXPECT_EQ(BlockAlertView::texts(u"%1 %L2"_s, BlockTarget::app).title,
              u"You're tolvar, %1 %L2 is blocked");
}

class BlockAlertViewTest : public ControlTest {
protected:
    BlockAlertView& named(const QString& name) {
        return shown(new BlockAlertView(context(), BlockAlertView::texts(name, BlockTarget::app)));
    }
};

TEST_F(BlockAlertViewTest, IsAsWideAsItIsWhateverItSays) {
    const int ordinary = named(u"Chat"_s).height();
    auto& longest = named(u"x"_s.repeated(10'000));
    EXPECT_EQ(named(u"Chat"_s).width(), 360);
    EXPECT_EQ(longest.width(), 360);
    EXPECT_GT(longest.height(), ordinary);
    EXPECT_LT(longest.height(), 2 * ordinary);
}

TEST_F(BlockAlertViewTest, HasAKeyThatSendsItAway) {
    auto& view = named(u"Chat"_s);
    QSignalSpy dismissed(&view, &BlockAlertView::dismissed);
    EXPECT_EQ(view.key().name(), u"Back to work!");
    press(view.key());
    EXPECT_EQ(dismissed.count(), 0);
    release(view.key());
    EXPECT_EQ(dismissed.count(), 1);
}

TEST_F(BlockAlertViewTest, IsAnAlertThatSaysAllOfItAndNothingOfTheCastle) {
    auto& view = named(u"Chat"_s);
    auto* face = accessible(view);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::AlertMessage);
    EXPECT_EQ(face->text(QAccessible::Name), u"You're tolvar, Chat is blocked");
    EXPECT_EQ(face->text(QAccessible::Description),
              u"This app will remain blocked until your focus session ends.");
    ASSERT_EQ(face->childCount(), 3);
    EXPECT_EQ(face->child(0)->role(), QAccessible::StaticText);
    EXPECT_EQ(face->child(0)->text(QAccessible::Name), u"You're tolvar, Chat is blocked");
    EXPECT_EQ(face->child(2)->text(QAccessible::Name), u"Back to work!");
    EXPECT_EQ(face->indexOfChild(face->child(2)), 2);
    EXPECT_EQ(face->child(3), nullptr);
}

class WrappedTextTest : public testing::Test {
protected:
    static WrappedText::Style style(int width, int lines) {
        return {.font = Instrument::font(12), .ink = Qt::white, .width = width, .mostLines = lines};
    }
    static int height(const QString& text, int width, int lines) {
        return WrappedText(text, style(width, lines)).height();
    }
    /// How far to the right there is ink.
    static int reach(const QString& text, int width, int lines) {
        WrappedText widget(text, style(width, lines));
        widget.setAttribute(Qt::WA_TranslucentBackground);
        const QImage picture = widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
        int most = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (qAlpha(picture.pixel(x, y)) > 0)
                    most = std::max(most, x);
        return most;
    }
};

TEST_F(WrappedTextTest, IsAsHighAsItsLines) {
    const int one = height(u"a word"_s, 300, 3);
    EXPECT_EQ(height(u"a word or two, and then some more of them"_s, 150, 3), 2 * one);
    EXPECT_EQ(height(u"word "_s.repeated(500), 150, 3), 3 * one);
    EXPECT_EQ(height(u"w"_s.repeated(500), 150, 3), 3 * one);
}

TEST_F(WrappedTextTest, LeavesNoWordAloneOnTheLastLine) {
    const QString text = u"This app will remain blocked until your focus session ends."_s;
    EXPECT_LT(reach(text, 320, 4), 240);
}

TEST_F(WrappedTextTest, StaysWithinItsWidth) {
    for (const QString& text : {u"word "_s.repeated(500), u"w"_s.repeated(500)})
        EXPECT_LT(reach(text, 150, 3), 150);
}

} // namespace
} // namespace tolvar::test
