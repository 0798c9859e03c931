#include "Views/Shared/ControlTest.h"
#include "Views/Shared/InstrumentSwitch.h"

#include <QSignalSpy>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class SwitchTest : public ControlTest {
protected:
    InstrumentSwitch& control = shown(new InstrumentSwitch(context(), u"Key sounds"_s));
};

TEST_F(SwitchTest, TapsBeforeItFlips) {
    QObject::connect(&control, &InstrumentSwitch::toggled, &window,
                     [this](bool isOn) { journal.record(isOn ? u"on"_s : u"off"_s); });
    press(control);
    release(control);
    EXPECT_THAT(journal.take(), ElementsAre(u"haptic alignment"_s, u"on"_s));
    press(control);
    release(control);
    EXPECT_THAT(journal.take(), ElementsAre(u"haptic alignment"_s, u"off"_s));
}

TEST_F(SwitchTest, SlidesItsKnobAndLightsItsLamp) {
    const QImage off = picture(control);
    control.setChecked(true);
    EXPECT_TRUE(frames.isRunning());
    settle();
    const QImage on = picture(control);
    EXPECT_NE(on, off);
    int amber = 0;
    for (int x = 0; x < on.width(); ++x)
        amber += qRed(on.pixel(x, on.height() / 2)) > 200 ? 1 : 0;
    EXPECT_GT(amber, 2);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(SwitchTest, FlipsWithSpaceAndReturn) {
    for (const Qt::Key code : {Qt::Key_Space, Qt::Key_Return}) {
        const bool before = control.isChecked();
        key(control, QEvent::KeyPress, code);
        key(control, QEvent::KeyRelease, code);
        EXPECT_NE(control.isChecked(), before);
    }
}

TEST_F(SwitchTest, TellsAScreenReaderWhatItIs) {
    auto* face = accessible(control);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::CheckBox);
    EXPECT_EQ(face->text(QAccessible::Name), u"Key sounds");
    EXPECT_FALSE(face->state().checked);
    face->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(control.isChecked());
    EXPECT_TRUE(face->state().checked);
}

TEST_F(SwitchTest, IsMirroredWhereTextRunsFromRightToLeft) {
    const QImage leftToRight = picture(control);
    control.setLayoutDirection(Qt::RightToLeft);
    const QImage rightToLeft = picture(control);
    EXPECT_NE(rightToLeft, leftToRight);
    EXPECT_LE(difference(rightToLeft.mirrored(true, false), leftToRight), 8);
}

} // namespace
} // namespace tolvar::test
