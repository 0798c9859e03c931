#include "Views/Shared/KeyButton.h"

#include "Views/Shared/ControlTest.h"

#include <QSignalSpy>

#include <cmath>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class KeyButtonTest : public ControlTest {
protected:
    KeyButton& makeKey(const QString& name = u"Start"_s) {
        return shown(new KeyButton(context(), KeyStyle::standard(), name));
    }

    /// The middle of the letters' light: how high it stands in the picture.
    static double inkHeight(QWidget& key) {
        const QImage image = picture(key);
        double weight = 0;
        double sum = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (const int light = qGray(image.pixel(x, y)); light > 70) {
                    weight += light;
                    sum += light * (y + 0.5);
                }
        return sum / weight;
    }
};

TEST_F(KeyButtonTest, ClicksDownAndUpAndTapsOnceOnTheWayDown) {
    auto& key = makeKey();
    QSignalSpy clicked(&key, &KeyButton::clicked);
    press(key);
    EXPECT_THAT(journal.take(), ElementsAre(u"haptic generic"_s, u"play keyDown"_s));
    EXPECT_EQ(clicked.count(), 0);
    release(key);
    EXPECT_THAT(journal.take(), ElementsAre(u"play keyUp"_s));
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(KeyButtonTest, DoesNotTapWithHapticsOffButClicks) {
    preferences.setBoolean(AppSettings::hapticsEnabled, false);
    auto& key = makeKey();
    press(key);
    release(key);
    EXPECT_THAT(journal.take(), ElementsAre(u"play keyDown"_s, u"play keyUp"_s));
}

TEST_F(KeyButtonTest, StaysQuietWhereItsContainerSaysSo) {
    auto& key = makeKey();
    key.setClicks(false);
    press(key);
    release(key);
    EXPECT_THAT(journal.take(), ElementsAre(u"haptic generic"_s));
}

TEST_F(KeyButtonTest, SinksByAPointAndAHalfAndSpringsBackToWhereItWas) {
    auto& key = makeKey();
    const QImage atRest = picture(key);
    const double height = inkHeight(key);
    press(key);
    settle();
    // At rest the letters stand on whole pixels, up to half of one away.
    EXPECT_NEAR(inkHeight(key) - height, KeyButton::pressedDepth * KeyButton::pressedScale, 0.55);
    release(key);
    settle();
    EXPECT_EQ(picture(key), atRest);
}

TEST_F(KeyButtonTest, OvershootsOnTheWayBackUp) {
    auto& key = makeKey();
    press(key);
    settle();
    release(key);
    double highest = inkHeight(key);
    double comesBack = 0;
    for (int frame = 0; frame < 40; ++frame) {
        frames.advance(1 / HandFrames::rate);
        const double height = inkHeight(key);
        highest = std::min(highest, height);
        comesBack = std::max(comesBack, height - highest);
    }
    EXPECT_GT(comesBack, 0.1) << "on its way up it turns round once";
}

TEST_F(KeyButtonTest, IsHeldHalfWayDownWhileItIsLatched) {
    auto& key = makeKey();
    const QImage atRest = picture(key);
    key.setLatched(true);
    settle();
    const QImage latched = picture(key);
    EXPECT_NE(latched, atRest);
    EXPECT_GT(qGray(atRest.pixel(atRest.width() / 2, 0)),
              qGray(latched.pixel(atRest.width() / 2, 0)))
        << "its top edge is dark";
    press(key);
    release(key);
    settle();
    EXPECT_TRUE(key.isLatched()) << "only who latched it releases it";
    EXPECT_EQ(picture(key), latched);
    key.setLatched(false);
    settle();
    EXPECT_EQ(picture(key), atRest);
}

TEST_F(KeyButtonTest, DoesNothingWhileItIsDisabled) {
    auto& key = makeKey();
    key.setEnabled(false);
    const QImage before = picture(key);
    press(key);
    settle();
    EXPECT_EQ(picture(key), before);
    EXPECT_THAT(journal.take(), ElementsAre());
}

TEST_F(KeyButtonTest, ComesBackUpWhenItIsDisabledUnderTheHand) {
    auto& key = makeKey();
    press(key);
    settle();
    key.setEnabled(false);
    settle();
    auto& untouched = makeKey();
    untouched.setEnabled(false);
    EXPECT_EQ(picture(key), picture(untouched));
}

TEST_F(KeyButtonTest, GoesDownAndUpWithSpaceReturnAndEnter) {
    auto& key = makeKey();
    QSignalSpy clicked(&key, &KeyButton::clicked);
    for (const Qt::Key code : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        ControlTest::key(key, QEvent::KeyPress, code);
        EXPECT_TRUE(key.isDown());
        EXPECT_THAT(journal.take(), ElementsAre(u"haptic generic"_s, u"play keyDown"_s));
        ControlTest::key(key, QEvent::KeyRelease, code);
        EXPECT_THAT(journal.take(), ElementsAre(u"play keyUp"_s));
    }
    EXPECT_EQ(clicked.count(), 3);
}

TEST_F(KeyButtonTest, CanBePressedByAScreenReader) {
    auto& key = makeKey(u"Resume"_s);
    auto* face = accessible(key);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::Button);
    EXPECT_EQ(face->text(QAccessible::Name), u"Resume");
    EXPECT_FALSE(face->state().checked);
    key.setLatched(true);
    EXPECT_TRUE(face->state().checked);
    ASSERT_EQ(face->actionInterface()->actionNames().first(),
              QAccessibleActionInterface::pressAction());
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(key.isDown()) << "it comes back up by itself";
    EXPECT_THAT(journal.take(), ElementsAre(u"haptic generic"_s, u"play keyDown"_s));
}

TEST_F(KeyButtonTest, NeedsNoFramesAtRest) {
    auto& key = makeKey();
    press(key);
    EXPECT_TRUE(frames.isRunning());
    release(key);
    settle();
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(KeyButtonTest, IsUpAndStillWhenItIsSeenAgainAfterItWasHiddenUnderTheHand) {
    auto& key = makeKey();
    const QImage atRest = picture(key);
    press(key);
    key.hide();
    EXPECT_FALSE(frames.isRunning());
    key.setLatched(true);
    key.setLatched(false);
    EXPECT_FALSE(frames.isRunning());
    key.show();
    EXPECT_FALSE(key.isDown());
    EXPECT_EQ(picture(key), atRest);
}

TEST_F(KeyButtonTest, TakesItsNameAsItIsWritten) {
    auto& key = makeKey(u"R&D"_s);
    EXPECT_TRUE(key.shortcut().isEmpty());
    EXPECT_EQ(accessible(key)->text(QAccessible::Name), u"R&D");
    key.setName(u"Resume"_s);
    EXPECT_EQ(accessible(key)->text(QAccessible::Name), u"Resume");
}

TEST_F(KeyButtonTest, ShrinksToItsPressedSize) {
    auto& key = makeKey();
    press(key);
    settle();
    const QImage image = picture(key);
    const QRgb outside = image.pixel(0, 0);
    int bare = 0;
    while (image.pixel(image.width() / 2, bare) == outside)
        ++bare;
    EXPECT_NEAR(bare, image.height() * (1 - KeyButton::pressedScale) / 2, 1);
}

TEST_F(KeyButtonTest, JumpsWhenMotionIsReduced) {
    driver.setSettings({.isReduced = true});
    auto& key = makeKey();
    const QImage atRest = picture(key);
    press(key);
    EXPECT_FALSE(frames.isRunning());
    const QImage pressed = picture(key);
    EXPECT_NE(pressed, atRest);
    driver.setSettings({});
    settle();
    EXPECT_EQ(picture(key), pressed);
}

TEST_F(KeyButtonTest, HasRoomForItsTextAndSymbol) {
    auto& narrow = makeKey(u"Go"_s);
    auto& wide = makeKey(u"Go to the very end of the list"_s);
    EXPECT_LT(narrow.sizeHint().width(), wide.sizeHint().width());
    const int plain = narrow.sizeHint().width();
    narrow.setSymbol(Symbol::play);
    EXPECT_GT(narrow.sizeHint().width(), plain);
    narrow.setShowsText(false);
    EXPECT_LT(narrow.sizeHint().width(), plain);
}

TEST_F(KeyButtonTest, MirrorsItsSymbolWhereTextRunsFromRightToLeft) {
    auto& key = makeKey(u"Play"_s);
    key.setSymbol(Symbol::playFill);
    key.resize(key.sizeHint());
    const QImage leftToRight = picture(key);
    key.setLayoutDirection(Qt::RightToLeft);
    EXPECT_NE(picture(key), leftToRight);
}

} // namespace
} // namespace tolvar::test
