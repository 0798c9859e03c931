#include "Views/Shared/ControlTest.h"
#include "Views/Shared/HeadShake.h"
#include "Views/Shared/InstrumentField.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class FieldTest : public ControlTest {
protected:
    InstrumentField& field = shown(new InstrumentField(context(), u"What is your goal?"_s, {}));
};

TEST_F(FieldTest, TellsAScreenReaderWhatItIs) {
    auto* face = accessible(field);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::EditableText);
    EXPECT_EQ(face->text(QAccessible::Name), u"What is your goal?");
}

TEST_F(FieldTest, ShakesItsHeadOncePerIncreaseAndStandsWhereItStood) {
    HeadShake shake(driver, field);
    shake.setCounter(0);
    shake.setCounter(1);
    const int home = field.x();
    int leftmost = home;
    int rightmost = home;
    for (int frame = 0; frame < 60; ++frame) {
        frames.advance(1 / HandFrames::rate);
        leftmost = std::min(leftmost, field.x());
        rightmost = std::max(rightmost, field.x());
    }
    EXPECT_NEAR(leftmost - home, -8, 1);
    EXPECT_NEAR(rightmost - home, 7, 1);
    EXPECT_EQ(field.x(), home);
    shake.setCounter(1);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(FieldTest, IsAsHighAsItWishes) {
    EXPECT_EQ(field.minimumSizeHint().height(), field.sizeHint().height());
}

TEST_F(FieldTest, EndsItsShakeWhereItsLayoutHasMovedIt) {
    HeadShake shake(driver, field);
    shake.setCounter(0);
    shake.setCounter(1);
    frames.advance(0.06);
    field.move(50, field.y());
    settle();
    EXPECT_EQ(field.x(), 50);
}

TEST_F(FieldTest, IsPutBackWhenTheShakeIsTakenAway) {
    const int home = field.x();
    {
        HeadShake shake(driver, field);
        shake.setCounter(0);
        shake.setCounter(1);
        frames.advance(0.06);
        EXPECT_NE(field.x(), home);
    }
    EXPECT_EQ(field.x(), home);
}

TEST_F(FieldTest, DoesNotShakeOnWhileNobodySeesIt) {
    HeadShake shake(driver, field);
    shake.setCounter(0);
    const int home = field.x();
    shake.setCounter(1);
    frames.advance(0.06);
    field.hide();
    frames.advance(0.06);
    EXPECT_FALSE(frames.isRunning());
    EXPECT_EQ(field.x(), home);
}

} // namespace
} // namespace tolvar::test
