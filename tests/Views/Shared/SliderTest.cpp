#include "Views/Shared/ControlTest.h"
#include "Views/Shared/InstrumentSlider.h"

#include <QSignalSpy>

#include <functional>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class SliderTest : public ControlTest {
protected:
    SliderTest() {
        control.resize(118, 22);
        control.setAmount(0.5);
    }

    InstrumentSlider& control = shown(new InstrumentSlider(context(), u"Volume"_s, {}));
    QSignalSpy changes{&control, &InstrumentSlider::valueChanged};
    QSignalSpy endings{&control, &InstrumentSlider::editingEnded};
};

TEST_F(SliderTest, ChangesItsAmountOncePerDragOnRelease) {
    changes.clear();
    send(control, QEvent::MouseButtonPress, {9, 11});
    send(control, QEvent::MouseMove, {59, 11});
    send(control, QEvent::MouseMove, {84, 11});
    EXPECT_DOUBLE_EQ(control.amount(), 0.5);
    EXPECT_EQ(changes.count(), 0);
    send(control, QEvent::MouseButtonRelease, {84, 11});
    EXPECT_DOUBLE_EQ(control.amount(), 0.75);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(endings.count(), 1);
}

TEST_F(SliderTest, ShowsWhereTheHandIsWhileItIsDragged) {
    const QImage before = picture(control);
    send(control, QEvent::MouseButtonPress, {9, 11});
    EXPECT_EQ(control.sliderPosition(), 0);
    EXPECT_NE(picture(control), before);
}

TEST_F(SliderTest, FollowsTheHandFinerThanTheHundredthsItSets) {
    send(control, QEvent::MouseButtonPress, {59, 11});
    const QRectF before = control.focusRim();
    send(control, QEvent::MouseMove, {59.25, 11});
    EXPECT_NEAR(control.focusRim().left() - before.left(), 0.25, 1e-9);
    send(control, QEvent::MouseButtonRelease, {59.25, 11});
    EXPECT_DOUBLE_EQ(control.amount(), 0.5);
    EXPECT_EQ(control.focusRim(), before);
}

TEST_F(SliderTest, StaysWithinItsEndsHoweverFarTheHandGoes) {
    send(control, QEvent::MouseButtonPress, {50, 11});
    send(control, QEvent::MouseMove, {-500, 11});
    EXPECT_EQ(control.sliderPosition(), control.minimum());
    send(control, QEvent::MouseMove, {900, 11});
    send(control, QEvent::MouseButtonRelease, {900, 11});
    EXPECT_DOUBLE_EQ(control.amount(), 1);
}

TEST_F(SliderTest, CountsEachStepOfTheKeyboardAsAnEditing) {
    key(control, QEvent::KeyPress, Qt::Key_Right);
    EXPECT_DOUBLE_EQ(control.amount(), 0.55);
    EXPECT_EQ(endings.count(), 1);
    key(control, QEvent::KeyPress, Qt::Key_End);
    EXPECT_DOUBLE_EQ(control.amount(), 1);
    key(control, QEvent::KeyPress, Qt::Key_End);
    EXPECT_EQ(endings.count(), 2) << "nothing changed any more";
}

TEST_F(SliderTest, GivesUpADragOnEscapeAndWhenItIsTakenFromUnderTheHand) {
    const std::function<void()> ends[] = {
        [this] { key(control, QEvent::KeyPress, Qt::Key_Escape); },
        [this] { control.setEnabled(false); }, [this] { control.hide(); }};
    for (const auto& end : ends) {
        control.setEnabled(true);
        control.show();
        send(control, QEvent::MouseButtonPress, {9, 11});
        end();
        EXPECT_FALSE(control.isSliderDown());
        EXPECT_DOUBLE_EQ(control.amount(), 0.5);
        EXPECT_EQ(control.sliderPosition(), control.value());
    }
    EXPECT_EQ(endings.count(), 0);
}

TEST_F(SliderTest, PaysNoHeedToOtherKeysDuringADrag) {
    send(control, QEvent::MouseButtonPress, {9, 11});
    key(control, QEvent::KeyPress, Qt::Key_Shift);
    key(control, QEvent::KeyPress, Qt::Key_Right);
    EXPECT_DOUBLE_EQ(control.amount(), 0.5);
    EXPECT_EQ(endings.count(), 0);
}

TEST_F(SliderTest, CountsADragThatComesBackAsAnEditing) {
    send(control, QEvent::MouseButtonPress, {59, 11});
    send(control, QEvent::MouseButtonRelease, {59, 11});
    EXPECT_EQ(endings.count(), 1);
}

TEST_F(SliderTest, TakesAnAmountFromTheProgramWithoutAnEditing) {
    control.setAmount(0.25);
    EXPECT_DOUBLE_EQ(control.amount(), 0.25);
    EXPECT_EQ(endings.count(), 0);
}

TEST_F(SliderTest, TakesAnAmountFromAScreenReaderAsAnEditing) {
    accessible(control)->valueInterface()->setCurrentValue(25);
    EXPECT_DOUBLE_EQ(control.amount(), 0.25);
    EXPECT_EQ(endings.count(), 1);
}

TEST_F(SliderTest, RunsFromRightToLeftWhereTextDoes) {
    control.setLayoutDirection(Qt::RightToLeft);
    send(control, QEvent::MouseButtonPress, {9, 11});
    send(control, QEvent::MouseButtonRelease, {9, 11});
    EXPECT_DOUBLE_EQ(control.amount(), 1);
}

TEST_F(SliderTest, TellsAScreenReaderWhatItIs) {
    auto* face = accessible(control);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::Slider);
    EXPECT_EQ(face->text(QAccessible::Name), u"Volume");
    EXPECT_EQ(face->valueInterface()->currentValue().toInt(), 50);
    EXPECT_EQ(face->valueInterface()->maximumValue().toInt(), 100);
}

} // namespace
} // namespace tolvar::test
